#include <QHashFunctions>

namespace {

/// Gives all hash tables the seed 0, ahead of the first one.
///
/// With another seed and on a processor that has VAES, Qt 6.4 hashes texts in 256-bit registers and leaves their upper
/// halves in use. Until something clears them, such processors take some 40 ns longer for each change between older and
/// newer vector instructions, as in every call of the C library's mathematics: finding a column by its name took 1,050
/// ns instead of 330, an angle of a rotation at a frame 1,000 ns instead of 240. For the seed 0 Qt hashes in whole
/// words.
///
/// A seed that nobody can guess keeps strangers from choosing keys that collide. Here the keys are names in a project
/// that a person opened; all that they could do is make that project slow.
[[maybe_unused]] const bool hasSeed = [] {
    QHashSeed::setDeterministicGlobalSeed();
    return true;
}();

} // namespace
