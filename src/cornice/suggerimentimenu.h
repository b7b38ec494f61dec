#pragma once

#include <QString>

// What each entry of the frame's menu does, in a line for the status bar, by the entry's name.
namespace SuggerimentiMenu {

// The line of an entry; empty for a name the table doesn't know.
QString per(const QString &nome);

// The line of the entries that list the open screens.
inline constexpr char VoceFinestra[] = "mnuFinestra";

} // namespace SuggerimentiMenu
