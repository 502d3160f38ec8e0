#include "models/usageCodes.h"

#include <QVector>

namespace newpro {

namespace {

template <typename Code>
struct Row {
    QString name;
    Code code;
};

template <typename Code>
const Row<Code>* firstMatch(const QVector<Row<Code>>& table, const QString& name) {
    for (const Row<Code>& row : table) {
        if (row.name == name) return &row;
    }
    return nullptr;
}

// The order is the log's and not sorted: "l" stands before "k".
const QVector<Row<QLatin1Char>>& cardCodes() {
    static const QVector<Row<QLatin1Char>> table = {
        {QStringLiteral("清单计价【国标2013规范，四川2020定额】（税率9%）"), QLatin1Char('a')},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（税率9%）"), QLatin1Char('b')},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（税率10%）"), QLatin1Char('c')},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（税率11%）"), QLatin1Char('d')},
        {QStringLiteral("清单计价【国标2013规范，四川2020定额】"), QLatin1Char('e')},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（[2019]181号文）"),
         QLatin1Char('f')},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（[2018]392号文）"),
         QLatin1Char('g')},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（[2016]481号文）"),
         QLatin1Char('h')},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】"), QLatin1Char('i')},
        {QStringLiteral("清单计价【国标2013规范，四川2009定额】"), QLatin1Char('j')},
        {QStringLiteral("清单计价【国标2003规范，四川2004定额】"), QLatin1Char('l')},
        {QStringLiteral("清单计价【国标2008规范，四川2009定额】"), QLatin1Char('k')},
        {QStringLiteral("定额计价【四川2000定额】"), QLatin1Char('m')},
        {QStringLiteral("清单计价【四川抗震加固定额】"), QLatin1Char('n')},
    };
    return table;
}

// The order is the log's: the 2008 norm stands before the 2003 norm, whose function is out of
// sequence.
const QVector<Row<int>>& pageFunctions() {
    static const QVector<Row<int>> table = {
        {QStringLiteral("清单计价【国标2013规范，四川2020定额】（税率9%，2025安文费）"), 13310},
        {QStringLiteral("清单计价【国标2013规范，四川2020定额】（税率9%）"), 11006},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（税率9%）"), 11007},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（税率10%）"), 11008},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（税率11%）"), 11009},
        {QStringLiteral("清单计价【国标2013规范，四川2020定额】（2025安文费）"), 13311},
        {QStringLiteral("清单计价【国标2013规范，四川2020定额】"), 11010},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（[2019]181号文）"), 11011},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（[2018]392号文）"), 11012},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】（[2016]481号文）"), 11013},
        {QStringLiteral("清单计价【国标2013规范，四川2015定额】"), 11014},
        {QStringLiteral("清单计价【国标2013规范，四川2009定额】"), 11015},
        {QStringLiteral("清单计价【国标2008规范，四川2009定额】"), 11016},
        {QStringLiteral("清单计价【国标2003规范，四川2004定额】"), 11101},
        {QStringLiteral("定额计价【四川2000定额】"), 11017},
        {QStringLiteral("清单计价【四川抗震加固定额】"), 11018},
        {QStringLiteral("2022工程总承包清单计价（税率9%）【初设前，2025安文费】"), 20003},
        {QStringLiteral("2022工程总承包清单计价（税率9%）【初设后，2025安文费】"), 20004},
        {QStringLiteral("2022工程总承包清单计价（税率9%）【初设前】"), 20005},
        {QStringLiteral("2022工程总承包清单计价（税率9%）【初设后】"), 20006},
        {QStringLiteral("2022工程总承包清单计价【初设前，2025安文费】"), 20007},
        {QStringLiteral("2022工程总承包清单计价【初设后，2025安文费】"), 20008},
        {QStringLiteral("2022工程总承包清单计价【初设前】"), 20009},
        {QStringLiteral("2022工程总承包清单计价【初设后】"), 20010},
    };
    return table;
}

}  // namespace

QString modelLogCode(const QString& modelName) {
    const Row<QLatin1Char>* row = firstMatch(cardCodes(), modelName);
    return row ? QString(row->code) : QString();
}

int modelUsageFunction(const QString& modelName) {
    const Row<int>* row = firstMatch(pageFunctions(), modelName);
    return row ? row->code : 0;
}

}  // namespace newpro
