// page data of a general contract is taken: message 105
// page data of no known kind is taken: message 0
#include <SharedInterface.h>

#include <map>

void Communication::SendMsgToPlugin(int, int code, const QJsonObject&) {
    static const std::map<int, const char*> known{
        {100, "budget"},   {102, "estimate"}, {103, "file"},    {104, "settlement"},
        {107, "workbook"}, {108, "tender"},   {114, "contract"}};
    static_cast<void>(known.at(code));
}
