#include "core/guard.h"

#include <QObject>
#include <functional>
#include <stdexcept>
#include <string>

#include "tests/support/TestSupport.h"

namespace {

using testing_support::journalLines;
using testing_support::Lines;
using workbench::Journal;

class Guard : public testing::Test {
  protected:
    testing_support::TemporaryInstallation host;

    /// What the one report carries: source, line, function, text.
    static QJsonArray onlyReport() {
        EXPECT_EQ(Journal::instance().entries().size(), 1);
        if (Journal::instance().entries().isEmpty()) return {};
        return Journal::instance().entries().constFirst().value(QLatin1String("args")).toArray();
    }
    template <typename Exception>
    static void throwing(Exception exception) {
        newpro::guarded({"Source", "function"}, [&] { throw exception; });
    }
};

struct NotAnException {};

TEST_F(Guard, LeavesABodyWithoutExceptionAlone) {
    int runs = 0;
    newpro::guarded({"Source", "function"}, [&] { ++runs; });
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(journalLines(), Lines{});
}

TEST_F(Guard, ReportsACharacterStringWithItsText) {
    throwing("文字 text");
    EXPECT_EQ(journalLines(), Lines{"exception Source::function: 文字 text"});
}

TEST_F(Guard, ReportsAQStringWithItsTextInUtf8) {
    throwing(QStringLiteral("文字 😀"));
    EXPECT_EQ(journalLines(), Lines{"exception Source::function: 文字 😀"});
}

TEST_F(Guard, ReportsAStandardExceptionAsItIs) {
    throwing(std::out_of_range("beyond"));
    EXPECT_EQ(journalLines(), Lines{"exception Source::function: beyond"});
}

TEST_F(Guard, ReportsAnythingElseAsUnknown) {
    throwing(42);
    throwing(NotAnException{});
    throwing(std::string("a text, but none of the kinds that are told apart"));
    throwing(static_cast<void*>(nullptr));
    EXPECT_EQ(journalLines(), Lines(4, "exception Source::function: 未知异常"));
}

TEST_F(Guard, ReportsANullCharacterStringAsEmptyText) {
    throwing(static_cast<const char*>(nullptr));
    EXPECT_EQ(journalLines(), Lines{"exception Source::function: "});
}

TEST_F(Guard, NamesSourceFunctionAndTheLineOfItsUse) {
    const int line = __LINE__ + 1;
    newpro::guarded({"Card", "slot"}, [] { throw "boom"; });
    EXPECT_EQ(onlyReport(), (QJsonArray{QStringLiteral("Card"), line, QStringLiteral("Card::slot"),
                                        QStringLiteral("boom")}));
}

TEST_F(Guard, NamesTheFunctionWithoutItsClass) {
    newpro::guarded({"Card", "newpro::Card::slot"}, [] { throw "boom"; });
    EXPECT_EQ(journalLines(), Lines{"exception Card::slot: boom"});
}

TEST_F(Guard, WithAResultNamesTheLineOfItsUse) {
    const int line = __LINE__ + 1;
    newpro::guardedOr("Card", false, []() -> bool { throw "boom"; });
    EXPECT_EQ(onlyReport().at(1).toInt(), line);
}

/// One of each kind of function that holds a guard without a name of its own.
struct Card {
    Card() {
        newpro::guarded("Card", [] { throw "boom"; });
    }
    ~Card() {
        newpro::guarded("Card", [] { throw "boom"; });
    }
    void slot(int) const {
        newpro::guarded("Card", [] { throw "boom"; });
    }
    bool override() const {
        return newpro::guardedOr("Card", true, []() -> bool { throw "boom"; });
    }
    std::function<void()> connected() const {
        return [] { newpro::guarded({"Card", "connected"}, [] { throw "boom"; }); };
    }
};

TEST_F(Guard, NamesTheFunctionAroundItByItself) {
    {
        const Card card;
        card.slot(1);
        card.override();
        card.connected()();
    }
    EXPECT_EQ(journalLines(),
              (Lines{"exception Card::Card: boom", "exception Card::slot: boom",
                     "exception Card::override: boom", "exception Card::connected: boom",
                     "exception Card::~Card: boom"}));
}

TEST_F(Guard, GivesTheResultOfTheBodyOrTheFallback) {
    EXPECT_EQ(newpro::guardedOr({"S", "f"}, 1, [] { return 2; }), 2);
    EXPECT_EQ(journalLines(), Lines{});
    EXPECT_EQ(newpro::guardedOr({"S", "f"}, 1, []() -> int { throw 3; }), 1);
    EXPECT_EQ(journalLines(), Lines{"exception S::f: 未知异常"});
}

TEST_F(Guard, InsideAnotherReportsOnceAndLetsTheOuterBodyGoOn) {
    bool wentOn = false;
    newpro::guarded({"S", "outer"}, [&] {
        newpro::guarded({"S", "inner"}, [] { throw "boom"; });
        wentOn = true;
    });
    EXPECT_TRUE(wentOn);
    EXPECT_EQ(journalLines(), Lines{"exception S::inner: boom"});
}

TEST(WithEnd, EndsOnEveryWayOutAndTheBodysExceptionGoesOn) {
    std::string order;
    newpro::withEnd([&] { order += "body "; }, [&] { order += "end"; });
    EXPECT_EQ(order, "body end");

    const auto fails = [](const char* text) { throw std::runtime_error(text); };
    const auto caught = [&](const auto& body, const auto& end) -> std::string {
        try {
            newpro::withEnd(body, end);
        } catch (const std::exception& exception) {
            return exception.what();
        }
        return "nothing";
    };
    int ends = 0;
    EXPECT_EQ(caught([&] { fails("body"); }, [&] { ++ends; }), "body");
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(caught([&] { fails("body"); }, [&] { ++ends, fails("end"); }), "body");
    EXPECT_EQ(ends, 2);
    EXPECT_EQ(caught([] {}, [&] { ++ends, fails("end"); }), "end");
    EXPECT_EQ(ends, 3);
}

TEST_F(Guard, SurvivesAReporterThatFails) {
    QObject scope;
    QObject::connect(&Journal::instance(), &Journal::recorded, &scope,
                     [] { throw std::runtime_error("the reporter is broken"); });
    throwing("boom");
    throwing(QStringLiteral("boom"));
    throwing(std::runtime_error("boom"));
    throwing(1);
    EXPECT_EQ(newpro::guardedOr({"S", "f"}, 7, []() -> int { throw 1; }), 7);
    EXPECT_EQ(testing_support::countOf("exception"), 5);
}

}  // namespace
