#pragma once

#include <QSet>
#include <QString>

/// Names of files and folders, made of names that people give.
namespace brindle::engine::safe_names {

/// A name keeps its letters, digits, "-", "_", "." and spaces; other characters, and a "." at the beginning, become
/// "_". It is cut where it is too long for a file system.
QString made(const QString& name);

/// Whether a name could have been made so, with a number behind it or without: it leads to nothing but a file of its
/// folder that isn't hidden.
bool isSafe(const QString& name);

/// A name as a file system sees it that doesn't tell capital letters apart, nor the two ways to write an accent.
QString folded(const QString& name);

/// The name, or where one is taken that folds to the same, one with a number behind it: "Walk-2". `taken` are folded.
QString unique(const QString& safe, const QSet<QString>& taken);

} // namespace brindle::engine::safe_names
