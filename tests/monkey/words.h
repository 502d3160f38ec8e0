/// What a monkey knows by name.
#pragma once

#include <QStringList>

namespace monkey {

/// @return a word of the scenarios, such as a member's name.
QString key(const char* ascii);

/// Operations that are asked so often that only a later call is one within the dialog's use.
const QStringList& busyOperations();

const QStringList& ribbonEntries();
const QStringList& taxModes();
const QStringList& models();
const QStringList& feeModes();
const QStringList& templates();
/// Texts for the file fields: files of every kind, what is no file, and nonsense.
const QStringList& files();
const QStringList& cloudFiles();
/// Choices for the host's file dialog.
const QStringList& choices();
const QStringList& historyEntries();
const QStringList& keys();
/// Widgets of all windows, by object name or text.
const QStringList& widgets();
/// Slots without arguments that create nothing.
const QStringList& harmlessSlots();

}  // namespace monkey
