#pragma once

/// The words that curves and areas share.
namespace Math::Constants {

/// Whether the end of an interval belongs to it.
enum Boundary : int { Open = 0, Closed = 1 };

/// The rule for the inside of a path that runs around a place more than once.
enum FillType : int {
    EvenOdd = 0, ///< Places that it runs around an odd number of times.
    NonZero = 1  ///< Places that it runs around at all, one direction taken off the other.
};

} // namespace Math::Constants
