#include "SharedInterface.h"
#include "workbench/hostlibs/SharedInterface/Workbook.h"
#include "workbench/journal/Journal.h"

LibXLExcel::LibXLExcel() = default;
LibXLExcel::~LibXLExcel() = default;

std::unique_ptr<LibXLExcel> LibXLExcel::Open(const QString& path) {
    return workbench::Journal::instance().call(
        "LibXLExcel::Open", {path},
        [&] {
            return std::unique_ptr<LibXLExcel>(workbench::isWorkbook(path) ? new LibXLExcel
                                                                           : nullptr);
        },
        [](const auto& workbook) { return workbook ? QJsonValue(true) : QJsonValue(); });
}
