#pragma once

#include "core/host/co_command.h"

#include <memory>

namespace brindle::engine {

class Column;
class JsonPlace;
class JsonWriter;
struct FrameShift;

/// The frames over which a curve holds its value: with a step of n frames, the frames from start to stop show the value
/// of start, start + n, start + 2n, ... A new one starts and stops at 1 with a step of 1, which is no hold. The three
/// are at least 1. It is a base of the columns that have one.
class Hold {
public:
    int start() const { return m_start; }
    int stop() const { return m_stop; }
    int step() const { return m_step; }
    /// False, and nothing changes, for a number under 1.
    bool setStart(int frame) { return set(m_start, frame); }
    bool setStop(int frame) { return set(m_stop, frame); }
    bool setStep(int step) { return set(m_step, step); }

    /// The frame whose value a frame shows.
    double shownFrame(double frame) const;
    /// Keeps the part of the held frames that lies within `count` frames from `first` on; these count from 1 then.
    void keepFrames(int first, int count);
    /// Moves the held frames along when frames come into the scene or go; null when they stay.
    std::unique_ptr<CO_Command> shiftCommand(Column& column, const FrameShift& shift);

    void write(JsonWriter& json) const; ///< [start, stop, step]
    void read(const JsonPlace& place);

private:
    static bool set(int& member, int value);

    int m_start = 1;
    int m_stop = 1;
    int m_step = 1;
};

} // namespace brindle::engine
