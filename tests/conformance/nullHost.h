// A host that answers null wherever it may, but for the first page. Included once in a program.
#pragma once

#include <SharedInterface.h>

// NOLINTBEGIN(misc-definitions-in-headers): one source of a program has them.
ProjectSettingHelper* ProjectSettingHelper::GetProjectSettingHelper() {
    return nullptr;
}
AppPluginManager* AppPluginManager::instance() {
    return nullptr;
}
std::unique_ptr<LibXLExcel> LibXLExcel::Open(const QString&) {
    return nullptr;
}
QWidget* Communication::GetMainWindow() {
    return nullptr;
}
SharedInterface* SharedInterface::getInstance() {
    return nullptr;
}
// NOLINTEND(misc-definitions-in-headers)
