#include "JetWriter.h"

#include "runtime/TextEncoding.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <numeric>
#include <optional>
#include <stdexcept>

namespace tallybrook::test {

namespace {

using carry::Cell;
using carry::JetType;

constexpr std::size_t kPage = 4096;
constexpr std::size_t kDataHead = 14;
constexpr std::size_t kMostLongPart = 4076;
constexpr std::uint16_t kDeleted = 0x8000;
constexpr std::uint16_t kMoved = 0x4000;

template <typename Number>
std::string bytesOfNumber(Number number) {
    return {reinterpret_cast<const char*>(&number), sizeof number};
}

template <typename Number>
void put(std::string& page, std::size_t at, Number number) {
    std::memcpy(page.data() + at, &number, sizeof number);
}

std::u16string unitsOfText(const std::string& text) {
    std::u16string units;
    for (const char32_t sign : charactersOf(text)) {
        if (sign < 0x10000) {
            units += static_cast<char16_t>(sign);
        } else {
            units += static_cast<char16_t>(0xD800 + ((sign - 0x10000) >> 10U));
            units += static_cast<char16_t>(0xDC00 + ((sign - 0x10000) & 0x3FFU));
        }
    }
    return units;
}

std::string wideText(const std::u16string& units) {
    std::string bytes;
    for (const char16_t unit : units)
        bytes += bytesOfNumber(unit);
    return bytes;
}

/// The short form; nothing where there is none.
std::optional<std::string> shortText(const std::u16string& units) {
    std::string bytes = "\xFF\xFE";
    bool isWide = false;
    for (const char16_t unit : units) {
        if ((unit & 0xFF) == 0)
            return std::nullopt;
        if (const bool needsWide = unit > 0xFF; needsWide != isWide) {
            bytes += '\0';
            isWide = needsWide;
        }
        bytes += isWide ? bytesOfNumber(unit) : std::string(1, static_cast<char>(unit));
    }
    return bytes;
}

std::string storedText(const std::string& text, bool isCompressed) {
    const std::u16string units = unitsOfText(text);
    const std::string wide = wideText(units);
    const std::optional<std::string> compressed = isCompressed ? shortText(units) : std::nullopt;
    return compressed && compressed->size() < wide.size() ? *compressed : wide;
}

bool isVariable(JetType type) {
    return type == JetType::Text || type == JetType::Memo || type == JetType::Object ||
           type == JetType::Binary;
}

std::size_t fixedSize(JetType type) {
    static const std::map<JetType, std::size_t> kSizes{
        {JetType::Byte, 1},     {JetType::Integer16, 2}, {JetType::Integer32, 4},
        {JetType::Currency, 8}, {JetType::Single, 4},    {JetType::Double, 8},
        {JetType::Date, 8},     {JetType::Decimal, 17},  {JetType::Guid, 16}};
    const auto found = kSizes.find(type);
    return found == kSizes.end() ? 0 : found->second;
}

double numberIn(const Cell& cell) {
    if (const auto* const whole = std::get_if<std::int64_t>(&cell))
        return static_cast<double>(*whole);
    return std::get<double>(cell);
}

std::string decimalBytes(std::int64_t number) {
    std::string bytes(1, number < 0 ? '\x80' : '\0');
    const std::uint64_t size =
        number < 0 ? 0 - static_cast<std::uint64_t>(number) : static_cast<std::uint64_t>(number);
    for (const std::uint64_t group : {std::uint64_t{0}, std::uint64_t{0}, size >> 32U, size & 0xFFFFFFFFU})
        bytes += bytesOfNumber(static_cast<std::uint32_t>(group));
    return bytes;
}

std::string fixedBytes(JetType type, const Cell& cell) {
    if (std::holds_alternative<Null>(cell))
        return std::string().assign(fixedSize(type), '\x55');  // a Null's bytes mean nothing
    switch (type) {
        case JetType::Byte:
            return bytesOfNumber(static_cast<std::uint8_t>(std::get<std::int64_t>(cell)));
        case JetType::Integer16:
            return bytesOfNumber(static_cast<std::int16_t>(std::get<std::int64_t>(cell)));
        case JetType::Integer32:
            return bytesOfNumber(static_cast<std::int32_t>(std::get<std::int64_t>(cell)));
        case JetType::Currency:
            return bytesOfNumber(std::get<std::int64_t>(cell));
        case JetType::Single:
            return bytesOfNumber(static_cast<float>(numberIn(cell)));
        case JetType::Double:
        case JetType::Date:
            return bytesOfNumber(numberIn(cell));
        case JetType::Decimal:
            return decimalBytes(std::get<std::int64_t>(cell));
        default:
            return std::get<std::string>(cell);
    }
}

/// The file, to which pages are added.
class JetPages {
public:
    std::uint32_t add() {
        pages_.emplace_back(kPage, '\0');
        return static_cast<std::uint32_t>(pages_.size() - 1);
    }
    std::string& operator[](std::size_t page) { return pages_.at(page); }
    [[nodiscard]] std::string bytes() const {
        return std::accumulate(pages_.begin(), pages_.end(), std::string());
    }

private:
    std::vector<std::string> pages_;
};

/// Pages with rows of one owner.
class RowPages {
public:
    RowPages(JetPages& pages, std::string owner) : pages_(pages), owner_(std::move(owner)) {}

    /// Adds a row; returns its pointer.
    std::uint32_t add(const std::string& row, std::uint16_t flags = 0) {
        constexpr std::uint16_t kMostRows = 255;
        if (numbers_.empty() || rows_ == kMostRows ||
            end_ < row.size() + kDataHead + std::size_t{2} * (rows_ + 1U))
            begin();
        std::string& page = pages_[numbers_.back()];
        end_ -= row.size();
        page.replace(end_, row.size(), row);
        put(page, kDataHead + std::size_t{2} * rows_, static_cast<std::uint16_t>(end_ | flags));
        put(page, 12, static_cast<std::uint16_t>(++rows_));
        put(page, 2, static_cast<std::uint16_t>(end_ - kDataHead - std::size_t{2} * rows_));
        return numbers_.back() << 8U | (rows_ - 1U);
    }
    /// What comes next goes on a page of its own.
    void begin() {
        numbers_.push_back(pages_.add());
        std::string& page = pages_[numbers_.back()];
        page[0] = page[1] = '\1';
        page.replace(4, owner_.size(), owner_);
        rows_ = 0;
        end_ = kPage;
    }
    [[nodiscard]] const std::vector<std::uint32_t>& numbers() const { return numbers_; }

private:
    JetPages& pages_;
    std::string owner_;
    std::vector<std::uint32_t> numbers_;
    std::uint16_t rows_ = 0;
    std::size_t end_ = 0;
};

class TableWriter {
public:
    TableWriter(JetPages& pages, RowPages& longValues, RowPages& maps, const JetTableText& table,
                std::uint32_t description)
        : pages_(pages),
          longValues_(longValues),
          maps_(maps),
          table_(table),
          description_(description),
          rows_(pages, bytesOfNumber(description)) {}

    void write() {
        for (const JetRow& row : table_.rows)
            addRow(bytesOfRow(row.cells), row.place);
        describe(maps_.add(map()), maps_.add(std::string(69, '\0')));
    }

private:
    void addRow(const std::string& row, RowPlace place) {
        switch (place) {
            case RowPlace::Usual:
                rows_.add(row);
                break;
            case RowPlace::Deleted:
                rows_.add(row, kDeleted);
                break;
            case RowPlace::DeletedElsewhere:
                rows_.add(bytesOfNumber(rows_.add(row, kDeleted)), kDeleted | kMoved);
                break;
            case RowPlace::Moved:
                rows_.add(bytesOfNumber(rows_.add(row, kDeleted)), kMoved);
                break;
            case RowPlace::MovedTwice: {
                const std::uint32_t last = rows_.add(row, kDeleted | kMoved);
                rows_.begin();
                const std::uint32_t first = rows_.add(bytesOfNumber(last), kDeleted | kMoved);
                rows_.add(bytesOfNumber(first), kMoved);
                break;
            }
        }
    }

    std::string longBytes(const std::string& value) {
        constexpr std::size_t kMostInline = 64;
        const auto size = static_cast<std::uint32_t>(value.size());
        if (size <= kMostInline)
            return bytesOfNumber(size | 0x80000000U) + std::string(8, '\0') + value;
        if (size <= kMostLongPart)
            return bytesOfNumber(size | 0x40000000U) + bytesOfNumber(longValues_.add(value)) +
                   std::string(4, '\0');
        std::uint32_t next = 0;
        for (std::size_t at = (size - 1) / kMostLongPart * kMostLongPart;; at -= kMostLongPart) {
            next = longValues_.add(bytesOfNumber(next) + value.substr(at, kMostLongPart));
            if (at == 0)
                break;
        }
        return bytesOfNumber(size) + bytesOfNumber(next) + std::string(4, '\0');
    }

    std::string variableBytes(const JetField& field, const Cell& cell) {
        if (std::holds_alternative<Null>(cell))
            return {};
        const auto& text = std::get<std::string>(cell);
        switch (field.type) {
            case JetType::Text:
                return storedText(text, field.isCompressed);
            case JetType::Memo:
                return longBytes(storedText(text, field.isCompressed));
            case JetType::Object:
                return longBytes(text);
            default:
                return text;
        }
    }

    std::string bytesOfRow(const std::vector<Cell>& cells) {
        std::string row = bytesOfNumber(static_cast<std::uint16_t>(cells.size()));
        std::string variable;
        std::vector<std::uint16_t> ends;
        std::string mask((cells.size() + 7) / 8, '\0');
        for (std::size_t at = 0; at < cells.size(); ++at) {
            const JetField& field = table_.fields[at];
            const bool isOff = field.type == JetType::Boolean && cells[at] == Cell{std::int64_t{0}};
            if (!std::holds_alternative<Null>(cells[at]) && !isOff)
                mask[at / 8] = static_cast<char>(mask[at / 8] | 1 << at % 8);
            if (isVariable(field.type)) {
                ends.push_back(static_cast<std::uint16_t>(variable.size()));
                variable += variableBytes(field, cells[at]);
            } else if (field.type != JetType::Boolean) {
                row += fixedBytes(field.type, cells[at]);
            }
        }
        if (ends.empty())
            return row + mask;
        const std::size_t start = row.size();
        row += variable + bytesOfNumber(static_cast<std::uint16_t>(start + variable.size()));
        std::for_each(ends.rbegin(), ends.rend(), [&](std::uint16_t end) {
            row += bytesOfNumber(static_cast<std::uint16_t>(start + end));
        });
        return row + bytesOfNumber(static_cast<std::uint16_t>(ends.size())) + mask;
    }

    /// The map of the pages with rows.
    std::string map() {
        const std::vector<std::uint32_t>& numbers = rows_.numbers();
        const std::uint32_t first = numbers.empty() ? 0 : numbers.front();
        const bool isWide = table_.isMapWide || (!numbers.empty() && numbers.back() - first >= 512);
        return isWide ? wideMap(numbers) : narrowMap(numbers, first);
    }
    static std::string narrowMap(const std::vector<std::uint32_t>& numbers, std::uint32_t first) {
        std::string bits(64, '\0');
        for (const std::uint32_t number : numbers)
            bits[(number - first) / 8] =
                static_cast<char>(bits[(number - first) / 8] | 1 << (number - first) % 8);
        return '\0' + bytesOfNumber(first) + bits;
    }
    std::string wideMap(const std::vector<std::uint32_t>& numbers) {
        const std::uint32_t mapPage = pages_.add();
        pages_[mapPage][0] = '\5';
        pages_[mapPage][1] = '\1';
        for (const std::uint32_t number : numbers) {
            char& bits = pages_[mapPage].at(4 + number / 8);
            bits = static_cast<char>(bits | 1 << number % 8);
        }
        return '\1' + bytesOfNumber(mapPage) + std::string(64, '\0');
    }

    void describe(std::uint32_t ownedPages, std::uint32_t freePages) {
        constexpr std::size_t kColumnsAt = 63;
        constexpr std::size_t kColumnSize = 25;
        std::string columns;
        std::string names;
        std::uint16_t number = 0;
        std::uint16_t variables = 0;
        std::uint16_t fixed = 0;
        for (const JetField& field : table_.fields) {
            std::string column(kColumnSize, '\0');
            column[0] = static_cast<char>(field.type);
            put(column, 5, number);
            put(column, 9, number++);
            const bool isFixed = !isVariable(field.type);
            put(column, 7, isFixed ? variables : variables++);
            if (field.type == JetType::Decimal) {
                column[11] = 18;
                column[12] = 2;
            }
            column[15] = static_cast<char>(isFixed ? 3 : 2);
            column[16] = static_cast<char>(field.isCompressed ? 1 : 0);
            put(column, 21, fixed);
            fixed = static_cast<std::uint16_t>(fixed + fixedSize(field.type));
            const std::size_t size = field.type == JetType::Text ? 510 : fixedSize(field.type);
            put(column, 23, static_cast<std::uint16_t>(field.type == JetType::Boolean ? 1 : size));
            columns += column;
            const std::string name = wideText(unitsOfText(field.name));
            names += bytesOfNumber(static_cast<std::uint16_t>(name.size())) + name;
        }
        std::string& page = pages_[description_];
        page[0] = '\2';
        page[1] = '\1';
        const auto told = static_cast<std::uint32_t>(std::min(table_.toldRows, liveRows()));
        put(page, 16, table_.toldRows == SIZE_MAX ? told : static_cast<std::uint32_t>(table_.toldRows));
        page[40] = 0x4E;
        put(page, 41, number);
        put(page, 43, variables);
        put(page, 45, number);
        put(page, 55, ownedPages);
        put(page, 59, freePages);
        const std::string rest = columns + names + "\xFF\xFF";
        if (kColumnsAt + rest.size() > kPage)
            throw std::runtime_error("too many columns for one page");
        page.replace(kColumnsAt, rest.size(), rest);
        put(page, 8, static_cast<std::uint32_t>(kColumnsAt + rest.size()));
    }
    [[nodiscard]] std::size_t liveRows() const {
        return static_cast<std::size_t>(std::ranges::count_if(table_.rows, [](const JetRow& row) {
            return row.place != RowPlace::Deleted && row.place != RowPlace::DeletedElsewhere;
        }));
    }

    JetPages& pages_;
    RowPages& longValues_;
    RowPages& maps_;
    const JetTableText& table_;
    std::uint32_t description_;
    RowPages rows_;
};

/// What RC4 makes of the key of all such files.
std::string maskBytes(std::size_t count) {
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    const std::array<unsigned char, 4> key{0xC7, 0xDA, 0x39, 0x6B};
    for (unsigned i = 0, j = 0; i < 256; ++i) {
        j = (j + state[i] + key[i % 4]) & 255U;
        std::swap(state[i], state[j]);
    }
    std::string bytes;
    for (unsigned i = 1, j = 0; bytes.size() < count; i = (i + 1) & 255U) {
        j = (j + state[i]) & 255U;
        std::swap(state[i], state[j]);
        bytes += static_cast<char>(state[(state[i] + state[j]) & 255U]);
    }
    return bytes;
}

std::string headerPage(const JetHeaderText& header) {
    constexpr double kMade = 37622.75;  // the date
    std::string page(kPage, '\0');
    page[1] = '\1';
    page.replace(4, header.mark.size(), header.mark);
    page[0x14] = static_cast<char>(header.version);
    put(page, 0x3C, std::uint16_t{1252});
    put(page, 0x3E, header.key);
    put(page, 0x6E, std::uint32_t{0x409});
    put(page, 0x72, kMade);
    std::string password(40, '\0');
    const std::string typed = wideText(header.password);
    password.replace(0, typed.size(), typed);
    const std::string day = bytesOfNumber(static_cast<std::int32_t>(kMade));
    for (std::size_t at = 0; at < password.size(); ++at)
        page[0x42 + at] = static_cast<char>(password[at] ^ day[at % day.size()]);
    const std::string mask = maskBytes(128);
    for (std::size_t at = 0; at < mask.size(); ++at)
        page[0x18 + at] = static_cast<char>(page[0x18 + at] ^ mask[at]);
    return page;
}

JetTableText catalogOf(const std::vector<JetTableText>& tables,
                       const std::vector<std::uint32_t>& descriptions) {
    JetTableText catalog{.name = "MSysObjects",
                         .fields = {{"Id", JetType::Integer32},
                                    {"Name", JetType::Text, true},
                                    {"Type", JetType::Integer16},
                                    {"Flags", JetType::Integer32},
                                    {"Database", JetType::Memo},
                                    {"LvProp", JetType::Object}},
                         .rows = {}};
    const auto entry = [&](std::int64_t id, const std::string& name, std::int64_t type, std::int64_t flags,
                           const Cell& database) {
        catalog.rows.push_back({{id, name, type, static_cast<std::int64_t>(static_cast<std::int32_t>(flags)),
                                 database, Null{}}});
    };
    entry(2, "MSysObjects", 1, 0x80000000, Null{});
    entry(0x0F000001, "Tables", 3, 0x80000000, Null{});
    for (std::size_t at = 0; at < tables.size(); ++at)
        entry(descriptions[at], tables[at].name, tables[at].type, tables[at].flags,
              tables[at].database.empty() ? Cell{Null{}} : Cell{tables[at].database});
    return catalog;
}

}  // namespace

std::string jetFile(const std::vector<JetTableText>& tables, const JetHeaderText& header) {
    JetPages pages;
    pages[pages.add()] = headerPage(header);
    pages.add();
    const std::uint32_t catalogPage = pages.add();
    std::vector<std::uint32_t> descriptions;
    for (std::size_t at = 0; at < tables.size(); ++at)
        descriptions.push_back(pages.add());
    RowPages longValues(pages, "LVAL");
    RowPages maps(pages, std::string(4, '\0'));
    for (std::size_t at = 0; at < tables.size(); ++at)
        TableWriter(pages, longValues, maps, tables[at], descriptions[at]).write();
    const JetTableText catalog = catalogOf(tables, descriptions);
    TableWriter(pages, longValues, maps, catalog, catalogPage).write();
    return pages.bytes();
}

}  // namespace tallybrook::test
