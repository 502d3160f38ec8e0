// what is no workbook cannot be opened
#include <SharedInterface.h>

std::unique_ptr<LibXLExcel> LibXLExcel::Open(const QString&) {
    return std::unique_ptr<LibXLExcel>(new LibXLExcel);
}
