#include "carry/Messages.h"

#include "carry/JetBytes.h"

#include <cstring>
#include <type_traits>
#include <utility>

namespace tallybrook::carry {

namespace {

// Both processes are one program on one machine, so numbers go as they are.

class Packer {
public:
    template <typename Number>
    requires std::is_arithmetic_v<Number>
    void put(Number number) { bytes_.append(reinterpret_cast<const char*>(&number), sizeof number); }
    void put(const std::string& text) {
        put(std::uint64_t{text.size()});
        bytes_ += text;
    }
    void put(Null /*nothing*/) {}
    void put(DateTime date) { put(std::int64_t{date.time_since_epoch().count()}); }
    void put(const Unreadable& value) { put(value.what); }
    template <typename... Kinds>
    void put(const std::variant<Kinds...>& value) {
        put(static_cast<std::uint8_t>(value.index()));
        std::visit([this](const auto& held) { this->put(held); }, value);
    }
    template <typename Element>
    void put(const std::vector<Element>& list) {
        put(std::uint64_t{list.size()});
        for (const Element& element : list)
            put(element);
    }
    void put(const TableBegins& message) {
        put(message.name);
        put(message.columns);
        put(message.toldRows);
    }
    void put(const RowFound& message) { put(message.cells); }
    void put(const TableEnds& message) { put(message.lostRows); }
    void put(const LinkedTable& message) {
        put(message.name);
        put(message.database);
    }
    void put(const OtherTable& message) { put(message.name); }
    void put(const ReadingFailed& message) { put(message.why); }
    void put(const ReadingEnds& /*nothing more*/) {}

    [[nodiscard]] const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

class Unpacker {
public:
    explicit Unpacker(std::string_view bytes) : bytes_(bytes) {}

    template <typename Number>
    requires std::is_arithmetic_v<Number>
    void take(Number& number) { number = numberAt<Number>(part(sizeof number), 0); }
    void take(std::string& text) { text = part(size()); }
    void take(Null& /*nothing*/) {}
    void take(DateTime& date) {
        std::int64_t seconds = 0;
        take(seconds);
        date = DateTime{std::chrono::seconds{seconds}};
        if (date < makeDate(1, 1, 1) || date >= makeDate(10000, 1, 1))
            throw NoMessage{};
    }
    void take(Unreadable& value) { take(value.what); }
    template <typename... Kinds>
    void take(std::variant<Kinds...>& value) {
        std::uint8_t kind = 0;
        take(kind);
        if (kind >= sizeof...(Kinds))
            throw NoMessage{};
        takeKind(value, kind, std::index_sequence_for<Kinds...>{});
    }
    template <typename Element>
    void take(std::vector<Element>& list) {
        for (std::uint64_t left = size(); left > 0; --left)
            take(list.emplace_back());
    }
    void take(TableBegins& message) {
        take(message.name);
        take(message.columns);
        take(message.toldRows);
    }
    void take(RowFound& message) { take(message.cells); }
    void take(TableEnds& message) { take(message.lostRows); }
    void take(LinkedTable& message) {
        take(message.name);
        take(message.database);
    }
    void take(OtherTable& message) { take(message.name); }
    void take(ReadingFailed& message) { take(message.why); }
    void take(ReadingEnds& /*nothing more*/) {}

    [[nodiscard]] bool isAtEnd() const { return bytes_.empty(); }

private:
    /// How many bytes or elements follow: never more than there are bytes.
    std::uint64_t size() {
        std::uint64_t size = 0;
        take(size);
        if (size > bytes_.size())
            throw NoMessage{};
        return size;
    }
    std::string_view part(std::size_t size) {
        if (size > bytes_.size())
            throw NoMessage{};
        const std::string_view taken = bytes_.substr(0, size);
        bytes_.remove_prefix(size);
        return taken;
    }
    template <typename Variant, std::size_t... Kinds>
    void takeKind(Variant& value, std::size_t kind, std::index_sequence<Kinds...> /*all*/) {
        ((Kinds == kind ? take(value.template emplace<Kinds>()) : void()), ...);
    }

    std::string_view bytes_;
};

}  // namespace

std::string packed(const Message& message) {
    Packer packer;
    packer.put(message);
    const std::uint64_t size = packer.bytes().size();
    return std::string(reinterpret_cast<const char*>(&size), sizeof size) + packer.bytes();
}

Message unpacked(std::string_view bytes) {
    Unpacker unpacker(bytes);
    Message message;
    unpacker.take(message);
    if (!unpacker.isAtEnd())
        throw NoMessage{};
    return message;
}

std::uint64_t sizeOfMessage(std::string_view head) {
    return numberAt<std::uint64_t>(head, 0);
}

}  // namespace tallybrook::carry
