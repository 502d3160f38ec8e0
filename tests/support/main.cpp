#include <gtest/gtest.h>

#include <QApplication>
#include <QMutex>
#include <QRegularExpression>
#include <QVector>
#include <cstdio>

#include "tests/support/TestSupport.h"
#include "tests/support/platformMessages.h"
#include "workbench/hostlibs/zBaseControl/SkinStyle.h"

namespace testing_support {

namespace {

struct Expected {
    QRegularExpression pattern;
    bool seen = false;
};

QMutex mutex;
QVector<Expected>& expected() {
    static QVector<Expected> list;
    return list;
}

void judgeMessage(QtMsgType type, const QMessageLogContext&, const QString& text) {
    if (isOfPlatform(text)) return;
    std::fprintf(stderr, "%s\n", text.toUtf8().constData());
    if (type == QtDebugMsg || type == QtInfoMsg) return;
    {
        const QMutexLocker lock(&mutex);
        for (Expected& each : expected()) {
            if (!each.pattern.match(text).hasMatch()) continue;
            each.seen = true;
            return;
        }
    }
    ADD_FAILURE() << "unexpected Qt message: " << text.toStdString();
}

/// A test leaves no warning unread, and to the next one in its process no mouse that is held and no
/// window that waits. (Of a key with Shift QTest itself leaves Shift.)
class Listener : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { expected().clear(); }
    void OnTestEnd(const testing::TestInfo&) override {
        for (const Expected& each : qAsConst(expected())) {
            EXPECT_TRUE(each.seen)
                << "no Qt message matched " << each.pattern.pattern().toStdString();
        }
        expected().clear();
        EXPECT_EQ(QApplication::mouseButtons(), Qt::NoButton) << "left down";
        EXPECT_FALSE(QApplication::activePopupWidget());
        EXPECT_FALSE(QApplication::activeModalWidget());
    }
};

}  // namespace

void expectWarning(const QString& pattern) {
    const QMutexLocker lock(&mutex);
    expected().append({QRegularExpression(pattern), false});
}

}  // namespace testing_support

#if defined(__SANITIZE_ADDRESS__)
extern "C" Q_DECL_EXPORT const char* __lsan_default_suppressions() {
    return KNOWN_LEAKS;
}
#endif

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    workbench::applySkin();
    testing::UnitTest::GetInstance()->listeners().Append(new testing_support::Listener);
    qInstallMessageHandler(testing_support::judgeMessage);
    const int result = RUN_ALL_TESTS();
    qInstallMessageHandler(nullptr);
    return result;
}
