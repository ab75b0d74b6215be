#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

namespace orv {

/// Makes this process keep to itself what it writes and holds: files are the person's alone, a release leaves no core
/// file and no keys of its connections, and a reader of its output that goes away ends nothing. First thing in main(),
/// before there is a second thread.
///
/// Not by making it undumpable: the desktop's portals could then not tell which program asks them.
void keepToOneself();

// Everything that starts a program does so here. It gets the rights, limits, signals and variables that this one was
// started with, and none of its files and connections.

/// Starts a program that outlives this one. False when there is none.
bool startProgram(const QString& program, const QStringList& arguments);

/// Runs a program to its end and gives what it prints; nothing when there is none. Not told when `context` goes first.
void runProgram(const QString& program, const QStringList& arguments, QObject* context,
                std::function<void(const QByteArray& printed)> report);

/// Has the desktop open a page or a folder.
bool openByDesktop(const QString& address);

}  // namespace orv
