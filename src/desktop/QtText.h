#pragma once

#include <QString>
#include <cstddef>
#include <string>

// The program's texts as the toolkit has them.
namespace tallybrook {

/// The text as it stands.
QString toQt(const std::string& text);

/// The lines of a text, ended as the toolkit ends them.
QString linesToQt(const std::string& text);

inline constexpr std::size_t kMostSeen = 2000;  // characters that any display has room for

/// A text as it stands in a row: all of it in one line, and no more characters than `most`.
QString inOneLine(const std::string& text, std::size_t most = kMostSeen);

/// A caption without the mark of its Alt letter, as it is read aloud.
QString spoken(const std::string& caption);

/// A text for a place that would underline the letter after a "&": all of it is shown as it stands.
QString unmarked(QString text);

/// The text of a tip, for a place that would take "<" for markup.
QString asTip(const std::string& text);

}  // namespace tallybrook
