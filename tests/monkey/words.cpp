#include "tests/monkey/words.h"

namespace monkey {

namespace {

/// @param lines one word each.
QStringList wordsOf(const char* lines) {
    return QString::fromUtf8(lines).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

}  // namespace

QString key(const char* ascii) {
    return QLatin1String(ascii);
}

const QStringList& busyOperations() {
    static const QStringList words = wordsOf(R"(
InterfaceAdaptation::getInstance
InterfaceAdaptation::getResolutionRatioH
)");
    return words;
}

const QStringList& ribbonEntries() {
    static const QStringList words = wordsOf(R"(
预算工程
审核工程
导入Excel新建
导入YFJZ新建
总承包工程
概算工程
结算工程
全过程工程
无名工程
)");
    return words;
}

const QStringList& taxModes() {
    static const QStringList words = wordsOf(R"(
一般计税
简易计税
营业税
模板工程
预算工程
导入CJZ新建
)");
    return words;
}

const QStringList& models() {
    static const QStringList words = wordsOf(R"(
清单计价【国标2013规范，四川2020定额】（税率9%）
清单计价【国标2013规范，四川2015定额】（税率9%）
清单计价【国标2013规范，四川2020定额】
清单计价【国标2008规范，四川2009定额】
2022工程总承包清单计价（税率9%）【初设前】
2022工程总承包清单计价【初设后】
)");
    return words;
}

const QStringList& feeModes() {
    static const QStringList words = wordsOf("整体计费\n单独计费");
    return words;
}

const QStringList& templates() {
    static const QStringList words = wordsOf(R"(
13规范清单计价(20定额)一般计税模板工程
城市道路
工程总承包(初设前)模板工程
)");
    return words;
}

const QStringList& files() {
    static const QStringList words = wordsOf(R"(
{installation}/ProjectFiles/锦江区第三中学教学楼.GCFX
{installation}/ProjectFiles/天府产业园一期.GCFZ
{installation}/ProjectFiles/市民中心估算.GCFG
{installation}/ProjectFiles/会议纪要（误存为工程）.GCFX
{installation}/ProjectFiles
{installation}/settings.json
{installation}/已移走的工程.GCFX
企业云盘/造价一部/住宅项目/锦绣花园一标段.GCFX
个人云盘/练习/定额换算练习.GCF
个人云盘/练习/没有后缀
个人云盘
企业云盘/没有这个文件夹/某工程.GCFZ
甲
%1 %2##\
)") + QStringList(QString());
    return words;
}

const QStringList& cloudFiles() {
    static const QStringList words = wordsOf(R"(
企业云盘/造价一部/住宅项目/锦绣花园一标段.GCFX
个人云盘/练习/定额换算练习.GCF
个人云盘
企业云盘/没有这个文件夹/某工程.GCFZ
/
)");
    return words;
}

const QStringList& choices() {
    static const QStringList words = wordsOf(R"(
ProjectFiles/锦江区第三中学教学楼.GCFX
ProjectFiles/天府产业园一期.GCFZ
ProjectFiles/市民中心估算.GCFG
ProjectFiles/没有这个文件.GCFX
Workbooks/教学楼分部分项清单.xlsx
Workbooks/不是工作簿.xlsx
Workbooks
Tenders/示范小学招标数据.YFJZ
)");
    return words;
}

const QStringList& historyEntries() {
    static const QStringList words = wordsOf(R"(
bd##{installation}/ProjectFiles/锦江区第三中学教学楼.GCFX
bd##{installation}/ProjectFiles/天府产业园一期.GCFZ
bd##{installation}/ProjectFiles/会议纪要（误存为工程）.GCFX
bd##{installation}/已移走的工程.GCFX
{installation}/ProjectFiles/锦江区第三中学教学楼.GCFX##教学楼##预算工程##2026-04-18 16:40##486##u1##0
{installation}/ProjectFiles/天府产业园一期.GCFZ##产业园##总承包工程##2026-04-18 16:40##486##u2##0
yp##个人云盘/练习/定额换算练习.GCF
企业云盘/造价一部/住宅项目/锦绣花园一标段.GCFX##锦绣##预算工程##2026-03-11 10:00##471##4##2026########0##1##u1##qy##end
yp##
bd##
##
##########
乙
)");
    return words;
}

const QStringList& keys() {
    static const QStringList words = wordsOf(R"(
Return
Enter
Escape
Space
Tab
Shift+Tab
Up
Down
Left
Right
Home
End
PgUp
PgDown
Menu
Delete
Backspace
A
F4
Alt+Down
Ctrl+A
Ctrl+V
Ctrl+Z
)");
    return words;
}

const QStringList& widgets() {
    static const QStringList words = wordsOf(R"(
curText
预算工程
审核工程
导入Excel新建
导入YFJZ新建
总承包工程
一般计税
简易计税
营业税
模板工程
新建审核
新建总承包
新建
lblTitle
btnNewProject
browseButton
newButton
fileCombo
templateTree
stackedWidget
lswGeneralTax
m_pJjmsCombo
ysTile
btnSelFile
btnSelDir
closeButton
BtnYs
BtnZcb
BtnQx
userField
passwordField
loginButton
cancelButton
popup
)");
    return words;
}

const QStringList& harmlessSlots() {
    static const QStringList words = wordsOf(R"(
slotRibbonTriggered
slotScanXjgs
slotScanXjjs
slotScanXjsh
slotScanXjsh_YN
slotScanXjZcb
CreateUI
InitWidgetDisplay
initConnect
GetModelCfgAndInitData
ClearProTaxModelListWidget
LoadTemplateProInfo
flushListWidget
initGsMbData
initXjXlData
initJsLsjlList
initShLsjlList
initZcbLsjlList
addMoBanWidget
addShXjWid
addZcbXjWid
setTreeStyleSheet
accept
reject
close
)");
    return words;
}

}  // namespace monkey
