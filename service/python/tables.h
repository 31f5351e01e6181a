#pragma once

#include "service/python/classtable.h"

#include <vector>

/// The tables of the families, each in the file of its family. Base classes stand ahead of what derives from them.
namespace brindle::python {

std::vector<ClassTable> frameTables();
std::vector<ClassTable> pythonFunctionTables();
std::vector<ClassTable> applicationTables();
std::vector<ClassTable> pointTables();
std::vector<ClassTable> vectorTables();
std::vector<ClassTable> rectangleTables();
std::vector<ClassTable> matrixTables();
std::vector<ClassTable> transformationTables();
std::vector<ClassTable> deformationTables();
std::vector<ClassTable> colourTables();
std::vector<ClassTable> bezierTables();
std::vector<ClassTable> bezierPathTables();
std::vector<ClassTable> projectTables();
std::vector<ClassTable> historyTables();
std::vector<ClassTable> sceneTables();
std::vector<ClassTable> sceneMetricsTables();
std::vector<ClassTable> sceneUnitConverterTables();
std::vector<ClassTable> compositionTables();
std::vector<ClassTable> placeholderTables();
std::vector<ClassTable> nodeTables();
std::vector<ClassTable> portTables();
std::vector<ClassTable> attributeTables();
std::vector<ClassTable> columnTables();

} // namespace brindle::python
