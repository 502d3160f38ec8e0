#include "workbench/hostlibs/common/hostTexts.h"

namespace workbench {

namespace {

HostTexts::Say wording = nullptr;

}  // namespace

QString hostText(const QString& chinese) {
    return wording ? wording(chinese) : chinese;
}

HostTexts::HostTexts(Say say) : before(wording) {
    wording = say;
}

HostTexts::~HostTexts() {
    wording = before;
}

}  // namespace workbench
