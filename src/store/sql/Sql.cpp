#include "store/sql/Sql.h"

#include "runtime/Ascii.h"
#include "runtime/TextCompare.h"
#include "runtime/TextForms.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <fmt/format.h>

namespace tallybrook {

namespace {

struct Token {
    enum class Kind { Word, Number, Text, Date, Sign, End };
    Kind kind = Kind::End;
    std::string_view text;  // a text without its outer quotes, a date without its hash marks
};

[[noreturn]] void notUnderstood(const std::string& why) {
    throw RunTimeError(error::kStatementNotUnderstood, "Syntax error in the statement: " + why + ".");
}

bool isWordCharacter(char c) {
    return isDigit(c) || isLetter(c) || c == '_';
}

bool isBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool isOfNumber(char c) {
    return isDigit(c) || c == '.';
}

/// Cuts a statement, which must outlive the tokens, into these.
class Lexer {
public:
    explicit Lexer(std::string_view sql) : rest_(sql) {}

    Token next() {
        rest_.remove_prefix(lengthWhile(isBlank));
        if (rest_.empty())
            return {};
        const char c = rest_.front();
        if (isLetter(c) || c == '_')
            return {Token::Kind::Word, take(lengthWhile(isWordCharacter))};
        if (c == '\'')
            return {Token::Kind::Text, quoted()};
        if (c == '#')
            return {Token::Kind::Date, date()};
        if (startsNumber())
            return {Token::Kind::Number, number()};
        return {Token::Kind::Sign, take(rest_.starts_with(">=") || rest_.starts_with("<=") ? 2 : 1)};
    }

private:
    template <typename Predicate>
    [[nodiscard]] std::size_t lengthWhile(Predicate holds, std::size_t from = 0) const {
        while (from < rest_.size() && holds(rest_[from]))
            ++from;
        return from;
    }

    [[nodiscard]] bool startsNumber() const {
        const auto isBefore = [](char c) { return c == '+' || c == '-' || c == '.'; };
        const std::size_t first = lengthWhile(isBefore);
        return first <= 2 && first < rest_.size() && isDigit(rest_[first]);
    }

    std::string_view take(std::size_t length) {
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    /// What stands up to the closing quote. Two quotes in a row do not close.
    std::string_view quoted() {
        std::size_t end = 1;
        while ((end = rest_.find('\'', end)) != std::string_view::npos && rest_.substr(end).starts_with("''"))
            end += 2;
        if (end == std::string_view::npos)
            notUnderstood("a text has no end");
        return take(end + 1).substr(1, end - 1);
    }

    std::string_view date() {
        const std::size_t end = rest_.find('#', 1);
        if (end == std::string_view::npos)
            notUnderstood("a date has no end");
        return take(end + 1).substr(1, end - 1);
    }

    /// A sign, digits and a point, nothing of a word right behind them.
    std::string_view number() {
        const std::size_t sign = rest_.front() == '-' || rest_.front() == '+' ? 1 : 0;
        const std::string_view text = take(lengthWhile(isOfNumber, sign));
        if (std::ranges::count(text, '.') > 1 || (!rest_.empty() && isWordCharacter(rest_.front())))
            notUnderstood(fmt::format("\"{}\" is no number", text));
        return text;
    }

    std::string_view rest_;
};

/// A text as it is meant: two quotes in a row stand for one.
std::string withoutDoubledQuotes(std::string_view text) {
    std::string meant;
    for (std::size_t i = 0; i < text.size(); ++i) {
        meant += text[i];
        if (text[i] == '\'')
            ++i;
    }
    return meant;
}

constexpr std::array<std::pair<std::string_view, Comparator>, 5> kComparators{{
    {"=", Comparator::Equal},
    {">=", Comparator::GreaterEqual},
    {"<=", Comparator::LessEqual},
    {">", Comparator::Greater},
    {"<", Comparator::Less},
}};

/// The words of the language itself, which name nothing.
constexpr std::array<std::string_view, 9> kKeywords{"SELECT", "DISTINCT", "FROM",  "WHERE", "AND",
                                                    "OR",     "LIKE",     "ORDER", "BY"};

bool isKeyword(std::string_view word) {
    return std::ranges::any_of(kKeywords,
                               [word](std::string_view keyword) { return compareText(word, keyword) == 0; });
}

bool isNumber(FieldType type) {
    return type != FieldType::Text && type != FieldType::Date;
}

/// Whether a value written in a statement can be compared with a column of that type.
bool isComparable(Literal::Kind literal, FieldType type, Comparator comparator) {
    if (comparator == Comparator::Like)
        return literal == Literal::Kind::Text;
    switch (literal) {
        case Literal::Kind::Text:
            return type == FieldType::Text;
        case Literal::Kind::Date:
            return type == FieldType::Date;
        default:
            return isNumber(type);
    }
}

/// The token as a value; nothing if it is none.
std::optional<Literal> literalIn(const Token& token) {
    switch (token.kind) {
        case Token::Kind::Number:
            return Literal{.kind = Literal::Kind::Number, .text = std::string(token.text)};
        case Token::Kind::Text:
            return Literal{.kind = Literal::Kind::Text, .text = withoutDoubledQuotes(token.text)};
        case Token::Kind::Date:
            return Literal{.kind = Literal::Kind::Date, .text = std::string(token.text)};
        default:
            return std::nullopt;
    }
}

class Parser {
public:
    Parser(const std::string& sql, int currentYear) : lexer_(sql), currentYear_(currentYear) { advance(); }

    Select parse() {
        expectWord("SELECT");
        Select select;
        select.distinct = takeWord("DISTINCT");
        const std::vector<std::string> names = fieldList();
        expectWord("FROM");
        select.table = findTable(word());
        if (select.table == nullptr)
            notUnderstood("there is no such table");
        select.fields = fieldsOf(*select.table, names);
        if (takeWord("WHERE"))
            select.anyOf = criteria(*select.table);
        if (takeWord("ORDER")) {
            expectWord("BY");
            select.orderBy = order(*select.table);
        }
        if (token_.kind != Token::Kind::End)
            notUnderstood(fmt::format("\"{}\" was not expected", token_.text));
        return select;
    }

private:
    void advance() { token_ = lexer_.next(); }

    [[nodiscard]] bool isWord(std::string_view keyword) const {
        return token_.kind == Token::Kind::Word && compareText(token_.text, keyword) == 0;
    }
    bool takeWord(std::string_view keyword) {
        const bool found = isWord(keyword);
        if (found)
            advance();
        return found;
    }
    void expectWord(std::string_view keyword) {
        if (!takeWord(keyword))
            notUnderstood(fmt::format("{} was expected", keyword));
    }
    bool takeSign(std::string_view sign) {
        const bool found = token_.kind == Token::Kind::Sign && token_.text == sign;
        if (found)
            advance();
        return found;
    }
    std::string word() {
        if (token_.kind != Token::Kind::Word || isKeyword(token_.text))
            notUnderstood("a name was expected");
        std::string name(token_.text);
        advance();
        return name;
    }

    /// The names of a field list; none for all fields. "table.*" leaves the table's name to be compared.
    std::vector<std::string> fieldList() {
        if (takeSign("*"))
            return {};
        std::vector<std::string> names{word()};
        if (takeSign(".")) {
            if (!takeSign("*"))
                notUnderstood("* was expected");
            starTable_ = names.front();
            return {};
        }
        while (takeSign(","))
            names.push_back(word());
        return names;
    }

    std::vector<const Column*> fieldsOf(const Table& table, const std::vector<std::string>& names) const {
        if (starTable_ && findTable(*starTable_) != &table)
            notUnderstood("the fields are not those of the table");
        std::vector<const Column*> fields;
        fields.reserve(table.columns.size());
        for (const std::string& name : names)
            fields.push_back(&columnOf(table, name));
        if (names.empty()) {
            for (const Column& column : table.columns)
                fields.push_back(&column);
        }
        return fields;
    }

    static const Column& columnOf(const Table& table, const std::string& name) {
        const Column* const column = table.find(name);
        if (column == nullptr)
            throw RunTimeError(error::kUnknownColumn,
                               "The statement names the column \"" + name + "\", which does not exist.");
        return *column;
    }

    /// Criteria joined by AND, which binds tighter, and OR.
    std::vector<std::vector<Criterion>> criteria(const Table& table) {
        std::vector<std::vector<Criterion>> anyOf{{criterion(table)}};
        for (;;) {
            if (takeWord("AND"))
                anyOf.back().push_back(criterion(table));
            else if (takeWord("OR"))
                anyOf.push_back({criterion(table)});
            else
                return anyOf;
        }
    }

    Criterion criterion(const Table& table) {
        const Column& column = columnOf(table, word());
        const Comparator comparator = this->comparator();
        const std::optional<Literal> literal = literalIn(token_);
        if (!literal)
            notUnderstood("a value was expected");
        if (!isComparable(literal->kind, column.type, comparator))
            throw RunTimeError(error::kCriteriaOfWrongType);
        advance();
        return {&column, comparator, valueOf(*literal, currentYear_)};
    }

    Comparator comparator() {
        if (takeWord("LIKE"))
            return Comparator::Like;
        for (const auto& [sign, comparator] : kComparators) {
            if (takeSign(sign))
                return comparator;
        }
        notUnderstood("a comparison was expected");
    }

    std::vector<const Column*> order(const Table& table) {
        std::vector<const Column*> columns{&columnOf(table, word())};
        if (takeSign(","))
            columns.push_back(&columnOf(table, word()));
        return columns;
    }

    Lexer lexer_;
    Token token_;
    int currentYear_;
    std::optional<std::string> starTable_;
};

}  // namespace

StatementShape shapeOf(std::string_view sql) {
    StatementShape shape;
    shape.text.reserve(sql.size());
    Lexer lexer(sql);
    for (Token token = lexer.next(); token.kind != Token::Kind::End; token = lexer.next()) {
        if (std::optional<Literal> literal = literalIn(token)) {
            shape.text += '?';
            shape.text += static_cast<char>('0' + static_cast<int>(literal->kind));
            literal->position = static_cast<std::size_t>(token.text.data() - sql.data());
            shape.literals.push_back(std::move(*literal));
        } else {
            shape.text += token.text;
        }
        shape.text += ' ';
    }
    return shape;
}

Value valueOf(const Literal& literal, int currentYear) {
    if (literal.kind == Literal::Kind::Text)
        return literal.text;
    if (literal.kind == Literal::Kind::Number)
        return leadingNumber(literal.text);
    try {
        return dateOnly(readDate(literal.text, currentYear));
    } catch (const RunTimeError&) {
        notUnderstood("#" + literal.text + "# is no date");
    }
}

Select parseSelect(const std::string& sql, int currentYear) {
    return Parser(sql, currentYear).parse();
}

}  // namespace tallybrook
