#pragma once

#include "carry/Cell.h"
#include "carry/JetValue.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// Writes small Jet 4 files, with all that a reader of them has to stand.
namespace tallybrook::test {

struct JetField {
    std::string name;
    carry::JetType type;
    bool isCompressed = false;  // whether texts are written in their short form where that is shorter
};

/// How a row lies in the file.
enum class RowPlace { Usual, Deleted, DeletedElsewhere, Moved, MovedTwice };

/// A row: Null, numbers (those of a Currency times 10000 already), texts, bytes as texts, dates as their
/// stored doubles.
struct JetRow {
    std::vector<carry::Cell> cells;
    RowPlace place = RowPlace::Usual;
};

struct JetTableText {
    std::string name;
    std::vector<JetField> fields;
    std::vector<JetRow> rows;
    std::uint32_t flags = 0;
    int type = 1;                     // in the catalog: 6 for a table that is linked
    std::string database = {};        // that one is linked to
    bool isMapWide = false;           // whether its map of pages is one of the kind for large tables
    std::size_t toldRows = SIZE_MAX;  // as the file says; by itself as many as there are
};

struct JetHeaderText {
    std::string mark = "Standard Jet DB";
    unsigned char version = 1;
    std::uint32_t key = 0;
    std::u16string password = {};
};

/// The whole file.
std::string jetFile(const std::vector<JetTableText>& tables, const JetHeaderText& header = {});

}  // namespace tallybrook::test
