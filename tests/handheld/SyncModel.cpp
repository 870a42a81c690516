#include "handheld/SyncModel.h"

#include "runtime/RunTimeError.h"
#include "runtime/TextForms.h"

#include <cctype>
#include <cmath>
#include <cstdlib>

namespace tallybrook::test {

namespace {

constexpr const char* kStamp = "11/14/2026 9:55:00 PM";

std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    std::string line;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (bytes[at] != '\r' && bytes[at] != '\n') {
            line += bytes[at];
            continue;
        }
        if (bytes[at] == '\r' && at + 1 < bytes.size() && bytes[at + 1] == '\n')
            ++at;
        lines.push_back(line);
        line.clear();
    }
    if (!line.empty())
        lines.push_back(line);
    return lines;
}

std::string mid(const std::string& line, std::size_t first, std::size_t count = std::string::npos) {
    return first > line.size() ? "" : line.substr(first - 1, count);
}

int inStr(int from, const std::string& line, char wanted) {
    for (int at = from; at <= static_cast<int>(line.size()); ++at) {
        if (line[static_cast<std::size_t>(at - 1)] == wanted)
            return at;
    }
    return 0;
}

/// The leading number of a text.
double val(const std::string& text) {
    std::string packed;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n')
            packed += c;
    }
    std::size_t at = 0;
    const auto digits = [&] {
        const std::size_t from = at;
        while (at < packed.size() && std::isdigit(static_cast<unsigned char>(packed[at])))
            ++at;
        return at - from;
    };
    if (at < packed.size() && (packed[at] == '-' || packed[at] == '+'))
        ++at;
    std::size_t count = digits();
    if (at < packed.size() && packed[at] == '.') {
        ++at;
        count += digits();
    }
    if (count == 0)
        return 0;
    if (at < packed.size() && (packed[at] == 'e' || packed[at] == 'E')) {
        const std::size_t before = at++;
        if (at < packed.size() && (packed[at] == '-' || packed[at] == '+'))
            ++at;
        if (digits() == 0)
            at = before;
    }
    return std::strtod(packed.substr(0, at).c_str(), nullptr);
}

std::string wholeText(double number) {
    return std::to_string(static_cast<long long>(number));
}

/// Rounds halves to even; NaN where the result is outside of the range.
double rounded(double number, double least, double most) {
    double whole = std::floor(number);
    const double rest = number - whole;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2) != 0))
        whole += 1;
    return whole < least || whole > most ? std::nan("") : whole;
}

std::string lower(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string upper(std::string text) {
    for (char& c : text)
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

std::string inQuotes(const std::string& text) {
    return "\"" + text + "\"";
}

}  // namespace

std::string rowText(const std::vector<std::string>& values) {
    std::string text;
    for (const std::string& value : values)
        text += value + "|";
    return text;
}

SyncModel::SyncModel(std::map<std::string, std::string> files, bool deleteFromPDA,
                     std::vector<bool> takeDuplicates)
    : cdb(std::move(files)), deleteFromPDA_(deleteFromPDA), takeDuplicates_(std::move(takeDuplicates)) {}

template <typename Body>
void SyncModel::procedure(const std::string& name, Body body) {
    try {
        body();
    } catch (const Fault& fault) {
        fail(fault.number, name);
    }
}

void SyncModel::fail(int number, const std::string& name) {
    boxes.push_back(std::to_string(number) + " " + name);
    if (!open_)
        throw Fault{52};
    open_ = false;
}

void SyncModel::write(const std::string& line) {
    if (!open_)
        throw Fault{52};
    runLog += line + "\r\n";
}

void SyncModel::writeOut(const std::string& file, const std::string& line) {
    if (!deleteFromPDA_)
        return;
    if (!open_)
        throw Fault{52};
    out_[file] += line + "\r\n";
}

std::string SyncModel::ParseDBLine(int& start, int& end, const std::string& previous, char delimiter,
                                   const std::string& line) {
    if (start < 1) {
        fail(5, "ParseDBLine");
        return previous;
    }
    const int a = inStr(start, line, delimiter);
    const int b = inStr(a + 1, line, delimiter);
    end = b;
    start = b + 1;
    return b == 0 ? mid(line, static_cast<std::size_t>(a) + 1)
                  : mid(line, static_cast<std::size_t>(a) + 1, static_cast<std::size_t>(b - a - 1));
}

/// What a reader keeps from line to line.
struct SyncModel::Reading {
    explicit Reading(SyncModel& owner) : model(owner) {}

    SyncModel& model;
    int start = 1;
    int end = 0;
    std::string line;
    std::map<int, std::string> texts;
    std::map<int, double> numbers;
    int processed = 0;
    int added = 0;
    int inError = 0;

    std::string id() const { return mid(line, 1, 10); }
    bool isDeleted() const { return mid(line, 12, 6) == "0x0002"; }
    void bare(int field) {
        start = end - 1;
        cut(field, ',');
    }
    void firstBare(int field, int column) {
        start = column;
        cut(field, ',');
    }
    void quotedText(int field) { cut(field, '"'); }
    void steppingBack() { start = end - 1; }
    void whole(int field) {
        bare(field);
        numbers[field] = rounded(val(texts[field]), -32768, 32767);
        if (std::isnan(numbers[field]))
            throw Fault{6};
    }
    void cut(int field, char delimiter) {
        texts[field] = model.ParseDBLine(start, end, texts[field], delimiter, line);
    }
    std::string number(int field) { return wholeText(numbers[field]); }
    void marked() {
        model.write("Record ID " + id() + " marked for deletion, not processed.");
        ++inError;
    }
    /// Whether the reading goes on behind a header line.
    bool header(const std::string& file, const std::string& many, bool endsAtNone) {
        model.writeOut(file, line);
        if (line.find("RECCNT") == std::string::npos)
            return true;
        const double count = rounded(val(mid(line, 10)), -2147483648.0, 2147483647.0);
        if (std::isnan(count))
            throw Fault{6};
        if (count == 0 && endsAtNone) {
            model.write("No " + many + " to process.");
            return false;
        }
        model.write("Total of " + wholeText(count) + " " + many + " in file.");
        return true;
    }
    void summary(const std::string& title, const std::string& many) {
        model.write(title + " processed: " + std::to_string(processed) + ", " + title + " added: " +
                    std::to_string(added) + ", " + title + " in error: " + std::to_string(inError));
        model.write("Completed processing " + many + ": " + kStamp + "\r\n");
    }
};

bool SyncModel::ReadCDBEvents() {
    bool noEvents = false;
    procedure("ReadCDBEvents", [&] {
        Reading r(*this);
        write(std::string(kStamp) + ": Reading events");
        for (const std::string& line : linesOf(cdb["tblEvent"])) {
            r.line = line;
            if (line[0] == '#') {
                if (!r.header("tblEvent", "events", true)) {
                    noEvents = true;
                    return;
                }
                continue;
            }
            ++r.processed;
            if (r.isDeleted()) {
                r.marked();
                continue;
            }
            r.firstBare(3, 13);
            r.quotedText(4);
            r.quotedText(5);
            std::vector<StoredEvent> duplicates;
            for (const StoredEvent& event : stored_) {
                if (lower(event.recordId) == lower(r.id()))
                    duplicates.push_back(event);
            }
            if (!duplicates.empty()) {
                const bool wanted = takeDuplicates_[asked_++ % takeDuplicates_.size()];
                std::string text = "Duplicate Event(s) Found:\r\n";
                for (const StoredEvent& event : duplicates)
                    text += "Event: " + event.name + "\r\nDate Bowled: " + event.date + "\r\n";
                boxes.push_back(text + "PDA Record\r\nEvent: " + r.texts[4] + "\r\nDate: " + r.texts[5] +
                                "\r\nAdd record from PDA?");
                if (!wanted) {
                    write("Conflicting record ID " + r.id() + " not processed.");
                    ++r.inError;
                    continue;
                }
            }
            std::string date;
            try {
                date = shortDate(readDate(r.texts[5], 2026));
            } catch (const RunTimeError& failure) {
                throw Fault{failure.number()};
            }
            for (int field = 6; field <= 9; ++field)
                r.quotedText(field);
            r.whole(10);
            r.bare(11);
            r.numbers[11] = val(r.texts[11]);
            if (!std::isfinite(r.numbers[11]))
                throw Fault{6};
            r.whole(12);
            if (!open_)
                throw Fault{91};
            const std::string average = doubleText(r.numbers[11]);
            events.push_back(rowText({r.texts[4], date, r.texts[7], r.texts[8], upper(r.texts[6]),
                                      r.number(10), r.number(12), average, r.texts[9], r.id()}));
            stored_.push_back({r.id(), r.texts[4], date});
            const int key = static_cast<int>(events.size());
            writeOut("tblEvent", r.id() + ",0x0002," + r.texts[3] + "," + inQuotes(r.texts[4]) + "," +
                                     inQuotes(r.texts[5]) + "," + inQuotes(r.texts[7]) + "," +
                                     inQuotes(r.texts[8]) + "," + inQuotes(r.texts[9]) + "," + r.number(10) +
                                     "," + average + "," + r.number(12));
            ++r.added;
            addedEvents_.push_back({key, r.texts[3]});
            write("Event " + r.id() + " added to database. Key: " + std::to_string(key));
        }
        r.summary("Events", "events");
    });
    return noEvents;
}

bool SyncModel::ReadCDBGames() {
    bool noGames = false;
    procedure("ReadCDBGames", [&] {
        Reading r(*this);
        write(std::string(kStamp) + ": Reading games.");
        for (const std::string& line : linesOf(cdb["tblGame"])) {
            r.line = line;
            if (line[0] == '#') {
                if (!r.header("tblGame", "games", true)) {
                    noGames = true;
                    return;
                }
                continue;
            }
            ++r.processed;
            r.firstBare(3, 17);
            r.bare(4);
            if (r.isDeleted()) {
                r.marked();
                continue;
            }
            int key = 0;
            for (const Added& event : addedEvents_) {
                if (key == 0 && event.handheldId == r.texts[4])
                    key = event.key;
            }
            if (key == 0) {
                write("No event found for record ID " + r.id() + ". Event ID: " + r.texts[4]);
                ++r.inError;
                continue;
            }
            for (int field = 5; field <= 10; ++field)
                r.whole(field);
            r.steppingBack();
            for (int field = 11; field <= 14; ++field)
                r.quotedText(field);
            if (!open_)
                throw Fault{91};
            games.push_back(rowText({std::to_string(key), r.number(5), r.number(10), r.number(8), r.number(9),
                                     r.texts[11], r.number(6), r.texts[13], r.texts[14], r.id(), "N"}));
            writeOut("tblGame", r.id() + ",0x0002," + r.texts[3] + "," + r.texts[4] + "," + r.number(5) +
                                    "," + r.number(6) + "," + r.number(8) + "," + r.number(9) + "," +
                                    r.number(10) + "," + inQuotes(r.texts[11]) + "," + inQuotes(r.texts[12]) +
                                    "," + inQuotes(r.texts[13]) + "," + inQuotes(r.texts[14]));
            ++r.added;
            addedGames_.push_back(r.texts[3]);
            write("Record ID: " + r.id() + " added to database, Event key: " + std::to_string(key) +
                  ", Game number: " + r.number(5));
        }
        r.summary("Games", "games");
    });
    return noGames;
}

void SyncModel::ReadCDBFrames() {
    procedure("ReadCDBFrames", [&] {
        Reading r(*this);
        if (!open_)
            throw Fault{52};
        for (const std::string& line : linesOf(cdb["tblFrame"])) {
            r.line = line;
            if (line[0] == '#') {
                r.header("tblFrame", "frames", false);
                continue;
            }
            ++r.processed;
            r.firstBare(3, 17);
            r.bare(4);
            r.bare(5);
            r.whole(6);
            r.whole(7);
            if (r.isDeleted()) {
                r.marked();
                continue;
            }
            bool found = false;
            for (const std::string& game : addedGames_)
                found = found || game == r.texts[5];
            int key = 0;
            for (const Added& event : addedEvents_) {
                if (key == 0 && event.handheldId == r.texts[4])
                    key = event.key;
            }
            if (!found || key == 0) {
                write("No event or game found for Record ID " + r.id() +
                      ", will not be added. Frame number: " + r.number(6) + ", Game number: " + r.number(7));
                ++r.inError;
                continue;
            }
            r.whole(8);
            r.steppingBack();
            for (int field = 9; field <= 16; ++field)
                r.quotedText(field);
            if (!open_)
                throw Fault{91};
            frames.push_back(rowText({std::to_string(key), r.number(7), r.number(6), r.number(8), r.texts[9],
                                      r.texts[10], r.texts[11], r.texts[12], r.texts[13], r.texts[14],
                                      r.texts[16], r.texts[15], r.id()}));
            ++r.added;
            std::string marked = r.id() + ",0x0002," + r.texts[3] + "," + r.texts[4] + "," + r.texts[5];
            for (int field = 6; field <= 8; ++field)
                marked += "," + r.number(field);
            for (int field = 9; field <= 16; ++field)
                marked += "," + inQuotes(r.texts[field]);
            writeOut("tblFrame", marked);
            write("Record ID: " + r.id() + " added to database, Event key: " + std::to_string(key) +
                  ", Game number: " + r.number(7) + ", Frame number: " + r.number(6));
        }
        r.summary("Frames", "frames");
    });
}

void SyncModel::reconcile() {
    write(std::string("Starting database reconciliaton at ") + kStamp);
    write(std::string("Database reconciliaton complete at ") + kStamp);
}

void SyncModel::Sync_Cleanup() {
    if (!deleteFromPDA_)
        return;
    for (auto& [name, bytes] : cdb)
        bytes = out_[name];
}

void SyncModel::run() {
    try {
        procedure("cmdAddPDA", [&] {
            if (ReadCDBEvents()) {
                boxes.emplace_back("There were no events to process.");
                return;
            }
            if (ReadCDBGames()) {
                boxes.emplace_back("There were no games to process.");
                return;
            }
            ReadCDBFrames();
            reconcile();
            Sync_Cleanup();
            boxes.emplace_back("Sync Complete");
        });
    } catch (const Fault& fault) {
        uncaught = fault.number;
    }
}

}  // namespace tallybrook::test
