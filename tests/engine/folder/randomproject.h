#pragma once

#include "tests/engine/support/memoryproject.h"

#include <random>

/// Changes a project by a random program of everything that a project folder keeps. The same seed gives the same
/// project.
class RandomProject {
public:
    RandomProject(MemoryProject& project, unsigned int seed) : m_project(project), m_random(seed) {}

    void change(int steps);

private:
    SC_ProjectCommon* common() { return m_project.scene().projectCommon(); }
    int below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }
    double number();
    QString name();
    TUGroup* group();
    MO_Node* node();
    AT_Attr* attribute();
    TUTimedValue* column();

    void addNode();
    void addPort();
    void link();
    void place();
    void mark();
    void explode();
    void addAttribute();
    void removeAttribute();
    void setValue();
    void linkColumn();
    void addColumn();
    void editColumn();
    void changeScene();
    void changeSettings();
    void changeMarkers();
    void changeBackdrops();
    void changeViews();
    void changeMetadata();
    void changeScenes();
    void removeNode();

    MemoryProject& m_project;
    std::mt19937 m_random;
};
