#pragma once

#include "runtime/Value.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tallybrook {

/// Values one behind the other in few bytes, since there may be those of all frames of a life of bowling.
class PackedValues {
public:
    void add(Null);
    void add(std::int64_t number);
    void add(double number);
    void add(DateTime date);
    void add(std::string_view text);
    void addValue(const Value& value);
    /// Adds all of others.
    void append(const PackedValues& others) { bytes_ += others.bytes_; }

    /// How many bytes they take.
    [[nodiscard]] std::size_t size() const { return bytes_.size(); }
    /// Drops what was added since they took so many bytes.
    void cutTo(std::size_t size) { bytes_.resize(size); }
    void clear() { bytes_.clear(); }

    /// Takes the values out, one after another. Must not outlive them, nor see them changed.
    class Reader {
    public:
        /// Begins with the value that was added when they took so many bytes.
        explicit Reader(const PackedValues& values, std::size_t from = 0)
            : at_(values.bytes_.data() + from) {}

        void skip();
        [[nodiscard]] Value take();

    private:
        template <typename Number>
        Number takeNumber();
        std::string takeText(std::size_t size);

        const char* at_;
    };

private:
    char* grow(std::size_t count);
    template <typename Number>
    void append(std::uint8_t kind, Number number);

    std::string bytes_;
};

}  // namespace tallybrook
