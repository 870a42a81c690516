#pragma once

#include "carry/CarryOver.h"
#include "carry/MatchedColumns.h"
#include "carry/Messages.h"
#include "carry/NewLogbook.h"

#include <set>
#include <string>
#include <vector>

namespace tallybrook::carry {

/// Takes what is read of an old logbook, message by message, and adds it to a new one.
class OldRows {
public:
    OldRows(NewLogbook& logbook, int currentYear, CarriedOver& result);

    /// Takes a message. Throws ReadingBroken for one that does not fit, OldLogbookRefused without the file's
    /// name for what makes it useless, and SQLite::Exception.
    void take(const Message& message);
    /// Whether the last message has come.
    [[nodiscard]] bool isAtEnd() const { return isAtEnd_; }
    /// What is being done, for people, and how far it is.
    [[nodiscard]] std::string work() const;
    [[nodiscard]] std::int64_t rowsTold() const;
    [[nodiscard]] std::int64_t rowsRead() const;

private:
    void takeIn(const TableBegins& message);
    void takeIn(const RowFound& message);
    void takeIn(const TableEnds& message);
    void takeIn(const LinkedTable& message);
    void takeIn(const OtherTable& message);
    void takeIn(const ReadingFailed& message);
    void takeIn(const ReadingEnds& message);

    void tellMissingColumns(const TableBegins& message);
    [[nodiscard]] std::vector<Value> convertedRow(const RowFound& message);
    void note(std::string text);
    void noteRow(const std::vector<Value>& row, const std::string& text);

    NewLogbook& logbook_;
    const int currentYear_;
    CarriedOver& result_;
    std::set<std::string> begun_;   // the tables that have come
    const Table* table_ = nullptr;  // the one that is read
    CarriedTable* carried_ = nullptr;
    std::vector<MatchedColumn> columns_;
    bool isAtEnd_ = false;
};

}  // namespace tallybrook::carry
