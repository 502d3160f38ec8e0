#include "models/usageCodes.h"

#include <QSet>

#include "tests/support/TestSupport.h"

namespace {

struct CardRow {
    const char* name;
    const char* code;
};

const CardRow cardRows[] = {
    {"清单计价【国标2013规范，四川2020定额】（税率9%）", "a"},
    {"清单计价【国标2013规范，四川2015定额】（税率9%）", "b"},
    {"清单计价【国标2013规范，四川2015定额】（税率10%）", "c"},
    {"清单计价【国标2013规范，四川2015定额】（税率11%）", "d"},
    {"清单计价【国标2013规范，四川2020定额】", "e"},
    {"清单计价【国标2013规范，四川2015定额】（[2019]181号文）", "f"},
    {"清单计价【国标2013规范，四川2015定额】（[2018]392号文）", "g"},
    {"清单计价【国标2013规范，四川2015定额】（[2016]481号文）", "h"},
    {"清单计价【国标2013规范，四川2015定额】", "i"},
    {"清单计价【国标2013规范，四川2009定额】", "j"},
    {"清单计价【国标2003规范，四川2004定额】", "l"},
    {"清单计价【国标2008规范，四川2009定额】", "k"},
    {"定额计价【四川2000定额】", "m"},
    {"清单计价【四川抗震加固定额】", "n"},
};

struct PageRow {
    const char* name;
    int function;
};

const PageRow pageRows[] = {
    {"清单计价【国标2013规范，四川2020定额】（税率9%，2025安文费）", 13310},
    {"清单计价【国标2013规范，四川2020定额】（税率9%）", 11006},
    {"清单计价【国标2013规范，四川2015定额】（税率9%）", 11007},
    {"清单计价【国标2013规范，四川2015定额】（税率10%）", 11008},
    {"清单计价【国标2013规范，四川2015定额】（税率11%）", 11009},
    {"清单计价【国标2013规范，四川2020定额】（2025安文费）", 13311},
    {"清单计价【国标2013规范，四川2020定额】", 11010},
    {"清单计价【国标2013规范，四川2015定额】（[2019]181号文）", 11011},
    {"清单计价【国标2013规范，四川2015定额】（[2018]392号文）", 11012},
    {"清单计价【国标2013规范，四川2015定额】（[2016]481号文）", 11013},
    {"清单计价【国标2013规范，四川2015定额】", 11014},
    {"清单计价【国标2013规范，四川2009定额】", 11015},
    {"清单计价【国标2008规范，四川2009定额】", 11016},
    {"清单计价【国标2003规范，四川2004定额】", 11101},
    {"定额计价【四川2000定额】", 11017},
    {"清单计价【四川抗震加固定额】", 11018},
    {"2022工程总承包清单计价（税率9%）【初设前，2025安文费】", 20003},
    {"2022工程总承包清单计价（税率9%）【初设后，2025安文费】", 20004},
    {"2022工程总承包清单计价（税率9%）【初设前】", 20005},
    {"2022工程总承包清单计价（税率9%）【初设后】", 20006},
    {"2022工程总承包清单计价【初设前，2025安文费】", 20007},
    {"2022工程总承包清单计价【初设后，2025安文费】", 20008},
    {"2022工程总承包清单计价【初设前】", 20009},
    {"2022工程总承包清单计价【初设后】", 20010},
};

TEST(UsageCodes, EveryModelOfTheCardsHasItsLetter) {
    for (const CardRow& row : cardRows) {
        EXPECT_EQ(newpro::modelLogCode(QString::fromUtf8(row.name)), QString::fromUtf8(row.code))
            << row.name;
    }
}

TEST(UsageCodes, EveryModelOfThePagesHasItsFunction) {
    for (const PageRow& row : pageRows) {
        EXPECT_EQ(newpro::modelUsageFunction(QString::fromUtf8(row.name)), row.function)
            << row.name;
    }
}

TEST(UsageCodes, NamesAreComparedWholeAndExactly) {
    for (const CardRow& row : cardRows) {
        const QString name = QString::fromUtf8(row.name);
        for (const QString& other :
             {name + QLatin1Char(' '), QLatin1Char(' ') + name, name.left(name.size() - 1),
              name.mid(1), name.toLower() + QLatin1Char('\0')}) {
            if (other == QStringLiteral("清单计价【国标2013规范，四川2020定额】")) continue;
            EXPECT_TRUE(newpro::modelLogCode(other).isNull()) << other.toStdString();
        }
    }
}

TEST(UsageCodes, UncountedModelsHaveNone) {
    EXPECT_TRUE(newpro::modelLogCode(QString()).isNull());
    EXPECT_EQ(newpro::modelUsageFunction(QString()), 0);
    EXPECT_TRUE(newpro::modelLogCode(QStringLiteral("没有的模式")).isNull());
    EXPECT_EQ(newpro::modelUsageFunction(QStringLiteral("没有的模式")), 0);
}

TEST(UsageCodes, ModelsOfThePagesAloneHaveNoLetter) {
    QSet<QString> counted;
    for (const CardRow& row : cardRows) counted.insert(QString::fromUtf8(row.name));
    int alone = 0;
    for (const PageRow& row : pageRows) {
        const QString name = QString::fromUtf8(row.name);
        if (counted.contains(name)) continue;
        ++alone;
        EXPECT_TRUE(newpro::modelLogCode(name).isNull()) << row.name;
    }
    EXPECT_EQ(alone, 10);
}

}  // namespace
