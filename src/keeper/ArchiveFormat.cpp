#include "keeper/ArchiveFormat.h"

#include "runtime/TextEncoding.h"
#include "store/sql/SchemaSteps.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include <fmt/format.h>

namespace tallybrook::keeper {

namespace {

using nlohmann::ordered_json;

// What JSON has no value for is an object with one of these names.
constexpr const char* kText = "text";  // a text that is no UTF-8, its bytes as hexadecimal digits
constexpr const char* kBlob = "blob";  // bytes that are no text, likewise
constexpr const char* kReal = "real";  // a number without end: "inf" or "-inf"

ordered_json jsonOf(const StoredValue& value) {
    if (const auto* const whole = std::get_if<std::int64_t>(&value))
        return *whole;
    if (const auto* const real = std::get_if<double>(&value))
        return std::isinf(*real) ? ordered_json{{kReal, *real > 0 ? "inf" : "-inf"}} : ordered_json(*real);
    if (const auto* const text = std::get_if<std::string>(&value))
        return encodingOf(*text) == Encoding::Utf8 ? ordered_json(*text)
                                                   : ordered_json{{kText, hexOf(*text)}};
    if (const auto* const blob = std::get_if<Blob>(&value))
        return {{kBlob, hexOf(blob->bytes)}};
    return nullptr;
}

std::optional<unsigned> digitOf(char sign) {
    if (sign >= '0' && sign <= '9')
        return static_cast<unsigned>(sign - '0');
    if (sign >= 'a' && sign <= 'f')
        return static_cast<unsigned>(sign - 'a') + 10;
    return std::nullopt;
}

/// The bytes that hexadecimal digits tell; nothing where they are none.
std::optional<std::string> bytesIn(std::string_view hex) {
    if (hex.size() % 2 != 0)
        return std::nullopt;
    std::string bytes;
    bytes.reserve(hex.size() / 2);
    for (std::size_t at = 0; at < hex.size(); at += 2) {
        const auto high = digitOf(hex[at]);
        const auto low = digitOf(hex[at + 1]);
        if (!high || !low)
            return std::nullopt;
        bytes += static_cast<char>(*high << 4U | *low);
    }
    return bytes;
}

/// The value of an object that stands for what JSON has no value for; nothing where it is none.
std::optional<StoredValue> oddValue(std::string_view name, const std::string& content) {
    if (name == kReal) {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        if (content == "inf")
            return kInfinity;
        return content == "-inf" ? std::optional<StoredValue>(-kInfinity) : std::nullopt;
    }
    std::optional<std::string> bytes = bytesIn(content);
    if (!bytes)
        return std::nullopt;
    if (name == kText)
        return std::move(*bytes);
    return name == kBlob ? std::optional<StoredValue>(Blob{std::move(*bytes)}) : std::nullopt;
}

/// Takes one row's line from the parser, in the only form that it can have, and stops at anything else: so
/// neither depth nor length of what somebody has made up costs anything.
class RowHandler : public nlohmann::json_sax<nlohmann::json> {
public:
    RowHandler(const ArchiveHead& head, std::size_t& kind, StoredRow& row)
        : head_(head), kind_(kind), row_(row) {
        row_.clear();
    }

    [[nodiscard]] bool isWhole() const { return at_ == At::End && row_.size() == width(); }

    bool null() override { return add(Null{}); }
    bool boolean(bool /*value*/) override { return false; }
    bool number_integer(number_integer_t value) override { return add(std::int64_t{value}); }
    bool number_unsigned(number_unsigned_t value) override {
        return std::in_range<std::int64_t>(value) && add(static_cast<std::int64_t>(value));
    }
    /// A whole number that is too long to be one comes here too. The text has the decimal point of the
    /// locale.
    bool number_float(number_float_t value, const string_t& text) override {
        return text.find_first_not_of("-0123456789") != std::string::npos && add(double{value});
    }
    bool binary(binary_t& /*value*/) override { return false; }

    bool string(string_t& value) override {
        if (at_ != At::OddValue)
            return add(std::move(value));
        std::optional<StoredValue> odd = oddValue(oddName_, value);
        at_ = At::Values;
        if (!odd || !add(std::move(*odd)))
            return false;
        return go(At::Values, At::OddEnd);
    }

    bool start_object(std::size_t /*size*/) override {
        return go(At::Begin, At::Kind) || go(At::Values, At::OddName);
    }
    bool end_object() override { return go(At::OddEnd, At::Values) || go(At::RowEnd, At::End); }
    bool start_array(std::size_t /*size*/) override { return go(At::Row, At::Values); }
    bool end_array() override { return go(At::Values, At::RowEnd); }

    bool key(string_t& name) override {
        if (at_ == At::OddName) {
            oddName_ = name;
            return go(At::OddName, At::OddValue);
        }
        const auto* const found = std::ranges::find(kRowKinds, name, &RowKind::name);
        kind_ = static_cast<std::size_t>(found - kRowKinds.begin());
        return found != kRowKinds.end() && go(At::Kind, At::Row);
    }
    bool parse_error(std::size_t /*position*/, const std::string& /*token*/,
                     const nlohmann::json::exception& /*failure*/) override {
        return false;
    }

private:
    enum class At { Begin, Kind, Row, Values, OddName, OddValue, OddEnd, RowEnd, End };

    [[nodiscard]] std::size_t width() const { return head_.columns[kind_].size(); }

    bool go(At from, At to) {
        if (at_ != from)
            return false;
        at_ = to;
        return true;
    }
    bool add(StoredValue value) {
        if (at_ != At::Values || row_.size() == width())
            return false;
        row_.push_back(std::move(value));
        return true;
    }

    const ArchiveHead& head_;
    std::size_t& kind_;
    StoredRow& row_;
    At at_ = At::Begin;
    std::string oddName_;
};

/// The columns of a table by their names: in its order, its first two, the keys, among them.
std::vector<const Column*> columnsCalled(const ordered_json& names, const Table& table) {
    std::vector<const Column*> columns;
    auto next = table.columns.begin();
    for (const ordered_json& name : names) {
        next = std::find_if(next, table.columns.end(),
                            [&](const Column& column) { return name == column.name; });
        if (next == table.columns.end())
            throw ArchiveFault("Its columns are not those of a logbook.");
        columns.push_back(&*next++);
    }
    if (columns.size() < 2 || columns[1] != &table.columns[1])
        throw ArchiveFault("Its columns are not those of a logbook.");
    return columns;
}

constexpr const char* kWrongNumber = "A number in its first line cannot be right.";

/// A whole number from 0 to `most`.
std::int64_t numberUpTo(std::int64_t most, const ordered_json& json) {
    if (!json.is_number_unsigned() || std::cmp_greater(json.get<std::uint64_t>(), most))
        throw ArchiveFault(kWrongNumber);
    return json.get<std::int64_t>();
}

/// A number of a version or a schema: from 1 to the newest that is known.
void requireKnown(const ordered_json& number, int newest) {
    if (!number.is_number_unsigned() || number < 1)
        throw ArchiveFault(kWrongNumber);
    if (number > newest)
        throw ArchiveFault("It was written by a newer version of Tallybrook. Please update the program.");
}

ArchiveHead headFrom(const ordered_json& json) {
    constexpr std::int64_t kMostRows = 1'000'000'000'000;  // more than any disk holds
    constexpr std::int64_t kLastKey = std::numeric_limits<std::int64_t>::max();
    if (!json.is_object() || json.value("format", "") != kArchiveFormat)
        throw ArchiveFault("It is no archive of Tallybrook.");
    requireKnown(json.at("version"), kArchiveVersion);
    requireKnown(json.at("schema"), newestSchema(schemaSteps()));
    ArchiveHead head{.schema = json.at("schema").get<int>()};
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
        const std::string name(kRowKinds[kind].name);
        head.columns[kind] = columnsCalled(json.at("columns").at(name), *findTable(kRowKinds[kind].table));
        head.counts.*kRowKinds[kind].count = numberUpTo(kMostRows, json.at("counts").at(name));
        head.lastKeys[kind] = numberUpTo(kLastKey, json.at("lastKeys").at(name));
    }
    return head;
}

}  // namespace

std::string lineOf(const ArchiveHead& head) {
    ordered_json json{{"format", kArchiveFormat}, {"version", kArchiveVersion}, {"schema", head.schema}};
    for (std::size_t kind = 0; kind < kKinds; ++kind) {
        const std::string name(kRowKinds[kind].name);
        for (const Column* const column : head.columns[kind])
            json["columns"][name].push_back(column->name);
    }
    for (std::size_t kind = 0; kind < kKinds; ++kind)
        json["counts"][std::string(kRowKinds[kind].name)] = head.counts.*kRowKinds[kind].count;
    for (std::size_t kind = 0; kind < kKinds; ++kind)
        json["lastKeys"][std::string(kRowKinds[kind].name)] = head.lastKeys[kind];
    return json.dump();
}

ArchiveHead headIn(const std::string& line) {
    constexpr int kDeepest = 3;
    constexpr std::size_t kLongestHead = std::size_t{64} << 10U;
    if (line.size() > kLongestHead)
        throw ArchiveFault("It is no archive of Tallybrook.");
    try {
        return headFrom(
            ordered_json::parse(line, [](int depth, ordered_json::parse_event_t, const ordered_json&) {
                if (depth > kDeepest)
                    throw ArchiveFault("It is no archive of Tallybrook.");
                return true;
            }));
    } catch (const nlohmann::json::parse_error&) {
        throw ArchiveFault("It is no archive of Tallybrook.");
    } catch (const nlohmann::json::exception&) {
        throw ArchiveFault("Something is missing in its first line, or is of the wrong kind.");
    }
}

std::string lineOf(const RowKind& kind, const StoredRow& row) {
    ordered_json values = ordered_json::array();
    for (const StoredValue& value : row)
        values.push_back(jsonOf(value));
    return fmt::format("{{\"{}\":{}}}", kind.name, values.dump());
}

std::string lastLine(std::int64_t rows, const std::string& checksum) {
    return ordered_json{{"end", {{"rows", rows}, {"sha256", checksum}}}}.dump();
}

void RowLine::read(const std::string& line) {
    RowHandler handler(head_, kind_, row_);
    if (!nlohmann::json::sax_parse(line, &handler) || !handler.isWhole())
        throw ArchiveFault("The line is no row of the logbook.");
}

}  // namespace tallybrook::keeper
