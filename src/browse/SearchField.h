#pragma once

#include <string>
#include <string_view>
#include <vector>

// What a search can ask for, in words and in the terms of a statement.
namespace tallybrook {

/// What a field holds, which decides the operators offered for it and the form of its value.
enum class FieldKind { Date, Number, Text, FreeText, EventType, LanePair };

/// A field that can be searched for.
struct SearchField {
    std::string words;
    std::string column;
    FieldKind kind;
};

/// The operators offered for a kind of field, in words, in the order of their list.
std::vector<std::string> operatorWords(FieldKind kind);

/// The operator of a statement that the words stand for, whatever the kind of the field; empty for words that
/// no list offers.
std::string sqlOperator(std::string_view words);

}  // namespace tallybrook
