#include <QJsonArray>
#include <QJsonDocument>

#include "tests/monkey/shrink.h"
#include "tests/support/TestSupport.h"

namespace {

QJsonObject object(const char* json) {
    return QJsonDocument::fromJson(json).object();
}

std::string text(const QJsonObject& content) {
    return QJsonDocument(content).toJson(QJsonDocument::Compact).toStdString();
}

TEST(ShrinkTest, StepsThatTheFailureDoesNotNeedAreTakenAway) {
    QJsonArray steps;
    for (int i = 0; i < 100; ++i) steps.append(i);
    int trials = 0;
    const auto fails = [&](const QJsonObject& content) {
        ++trials;
        const QJsonArray left = content.value(QStringLiteral("steps")).toArray();
        return left.contains(13) && left.contains(88);
    };
    const QJsonObject small =
        monkey::shrunk({{QStringLiteral("steps"), steps}, {QStringLiteral("host"), 1}}, fails);
    EXPECT_EQ(text(small), R"({"steps":[13,88]})");
    EXPECT_LT(trials, 60);
}

TEST(ShrinkTest, MembersAndRulesAreTakenAtAnyDepth) {
    const QJsonObject big = object(R"({"host": {"skin": "dark", "throw": [{"call": "a", "nth": 2},
        {"call": "b", "nth": 1, "text": "x"}]}, "steps": [{"do": "host", "throw": [1, 2, 3]}]})");
    const auto fails = [](const QJsonObject& content) {
        const QJsonValue rules = content[QStringLiteral("host")][QStringLiteral("throw")];
        const QJsonValue step = content[QStringLiteral("steps")].toArray().at(0);
        bool b = false;
        for (const QJsonValue rule : rules.toArray())
            if (rule[QStringLiteral("call")].toString() == QStringLiteral("b")) b = true;
        return b && step[QStringLiteral("throw")].toArray().contains(2);
    };
    EXPECT_EQ(text(monkey::shrunk(big, fails)),
              R"({"host":{"throw":[{"call":"b"}]},"steps":[{"throw":[2]}]})");
}

TEST(ShrinkTest, WhatHangsTogetherIsTakenTogetherOrNotAtAll) {
    const QJsonObject pair = object(R"({"steps": [1, 2, 3, 4]})");
    const auto balanced = [](const QJsonObject& content) {
        const QJsonArray steps = content[QStringLiteral("steps")].toArray();
        return steps.contains(4) && steps.contains(1) == steps.contains(2);
    };
    EXPECT_EQ(text(monkey::shrunk(pair, balanced)), R"({"steps":[4]})");
}

}  // namespace
