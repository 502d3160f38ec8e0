/// What the tests of the template card share.
#pragma once

#include <QLabel>

#include "import/TemplateProListItem.h"
#include "tests/support/TestSupport.h"
#include "zBaseControl.h"

namespace testing_support {

/// A template file on a temporary host.
struct TemplateCard : testing::Test {
    TemporaryInstallation installation;
    QString file =
        installation.write(QStringLiteral("MBSC/kvys/住宅楼.v2.MODX"), QByteArray(2048, 'x'));

    static QString text(const QWidget* card, const char* label) {
        return child<QLabel>(card, label)->text();
    }
    static zBaseButton* newButton(const QWidget* card) {
        return child<zBaseButton>(card, "btnNewProject");
    }
};

}  // namespace testing_support
