/// The module's message boxes: title "提示", one button "确定", over the host's main window.
#pragma once

class QString;

namespace newpro {

/// Refuses a choice of the user's with the host's information box.
void refuse(const QString& text);
/// The same with the host's critical box.
void refuseCritically(const QString& text);

}  // namespace newpro
