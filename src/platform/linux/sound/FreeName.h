#pragma once

#include <QByteArray>

namespace kest {

constexpr int mostNames = 1000; ///< As many numbers are tried.

/// "a.m4a" is followed by "a 2.m4a"; number 1 is the name itself. What is too
/// long with its number is cut in front of it.
QByteArray numberedName(const QByteArray &name, int number);

/// Whether anything has that name in the open `folder`.
bool isTaken(int folder, const QByteArray &name);

/// Gives the file `from`, of one open folder, the name `wanted` in another of
/// the same file system or, where that is taken, the first numbered one that is
/// free: nothing is ever replaced. Returns the name it has then; empty, with
/// errno set, when it keeps the old one.
QByteArray renameToFree(int fromFolder, const QByteArray &from, int folder, const QByteArray &wanted);

} // namespace kest
