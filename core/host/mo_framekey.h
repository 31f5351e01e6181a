#pragma once

/// A moment of the animation: a frame, counted from 1, or a place between two.
class MO_FrameKey {
public:
    explicit MO_FrameKey(double frame) : m_frame(frame) {}

    double frame() const { return m_frame; }
    bool operator==(const MO_FrameKey& other) const = default;

private:
    double m_frame;
};
