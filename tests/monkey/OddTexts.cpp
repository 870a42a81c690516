#include "monkey/OddTexts.h"

namespace tallybrook::test {

namespace {

constexpr std::size_t kVeryLong = 5000;
constexpr std::size_t kLongName = 300;  // longer than a file's name can be

}  // namespace

const std::vector<std::string>& oddTexts() {
    static const std::vector<std::string> kTexts{
        "",
        " ",
        "O'Malley's",
        "''",
        "\"quoted\" \\ and back",
        "'; DROP TABLE tblEventInfo; --",
        "x' OR fldSessionNum > 0 OR fldEventName = 'x",
        "<b>bold</b> &amp; <img src='http://localhost/x.png'>",
        "&Alt && &",
        "%s%n%d%x{0}{}",
        "%",
        "_",
        "#11/4/2026#",
        "../../x",
        "/",
        "C:\\Program Files\\x|y*?",
        "a,b,\"c\",,",
        "Zo\xC3\xAB M\xC3\xBCller \xC3\x9F \xE4\xBF\x9D\xE9\xBE\x84\xE7\x90\x83",
        "\xF0\x9F\x8E\xB3\xF0\x9F\x87\xA9\xF0\x9F\x87\xAA e\xCC\x81",
        "\xE2\x80\xAE"
        "backwards \xD8\xB3\xD9\x84\xD8\xA7\xD9\x85",
        "\xEF\xBB\xBF"
        "mark",
        "a\tb\x01\x7F\xC2\x80",
        "\xEF\xBF\xBF\xCD\xB8\xF3\xA0\x80\x82",
        "NULL",
        "NaN",
        "1e400",
        "-1e-400",
        "32767",
        "32768",
        "-32769",
        "2147483648",
        "99999999999999999999",
        "0x1F",
        "1,2,3",
        "2.5",
        ".",
        "-",
        std::string(kVeryLong, 'x'),
        std::string(kLongName, '9'),
    };
    return kTexts;
}

const std::vector<std::string>& likelyTexts() {
    static const std::vector<std::string> kTexts{
        "0",          "1",        "2",          "3",          "10",
        "12",         "13",       "14",         "99",         "137",
        "200",        "279",      "300",        "301",        "X",
        "/",          "-",        "9/",         "9-",         "81",
        "X9/",        "XXX",      "xx",         "F",          "S5",
        "7-10",       "1-2-3",    "11/4/2026",  "11/14/2026", "2/29/2024",
        "2/30/26",    "13/1/26",  "nov 4",      "2026-11-4",  "11/04/99",
        "today",      "1/1/1900", "12/31/9999", "League",     "Thursday League",
        "Tech Lanes", "PRACTICE", "Monday",     "P",          "L",
        "2nd arrow",  "15 board", "Blue ball",
    };
    return kTexts;
}

const std::vector<std::string>& keys() {
    static const std::vector<std::string> kKeys{
        "Tab",   "Shift+Tab", "Return", "Escape", "Space",    "Up",     "Down",      "Left",
        "Right", "Home",      "End",    "PageUp", "PageDown", "Delete", "Backspace", "F1",
        "F2",    "Ctrl+S",    "Ctrl+P", "Ctrl+N", "a",        "7",      "'",         "%",
        "Alt+A", "Alt+B",     "Alt+C",  "Alt+D",  "Alt+E",    "Alt+F",  "Alt+G",     "Alt+H",
        "Alt+I", "Alt+L",     "Alt+M",  "Alt+N",  "Alt+O",    "Alt+P",  "Alt+R",     "Alt+S",
        "Alt+T", "Alt+U",     "Alt+V",  "Alt+W",  "Alt+X",    "Alt+Y",
    };
    return kKeys;
}

const std::vector<std::string>& files() {
    static const std::vector<std::string> kFiles{
        "<data>/Reports/first.txt",
        "<data>/Reports/second.txt",
        "<data>/Reports/no ending",
        "<data>/Reports/<b>x</b> %s%n '; DROP TABLE x.txt",
        "<data>/Reports/Zo\xC3\xAB \xF0\x9F\x8E\xB3.txt",
        "<data>/Reports/" + std::string(kLongName, 'n') + ".txt",
        "<data>/Reports",
        "<data>/not there/report.txt",
        "<data>/DB_Report.txt",
        "<data>/Hand/report.txt",
    };
    return kFiles;
}

const std::vector<std::string>& moments() {
    static const std::vector<std::string> kMoments{
        "2026-11-14 21:55:32", "2026-12-31 23:59:59", "2027-01-01 00:00:00",
        "2024-02-29 12:00:00", "1999-07-04 08:05:09",
    };
    return kMoments;
}

}  // namespace tallybrook::test
