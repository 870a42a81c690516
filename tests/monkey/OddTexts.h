#pragma once

#include <string>
#include <vector>

// What a monkey types and chooses.
namespace tallybrook::test {

/// Texts that no field was made for: quotes, markup, statements, paths, formats, letters of all languages,
/// very long ones.
const std::vector<std::string>& oddTexts();

/// Texts that somebody might type into one field or another: numbers, dates, cells, names.
const std::vector<std::string>& likelyTexts();

/// Keys that do something somewhere, and some that do nothing.
const std::vector<std::string>& keys();

/// Files below the data folder to be chosen in a dialog, as a script names them: some can be written, some
/// lie in folders that are not there, some are folders.
const std::vector<std::string>& files();

/// Moments for the clock.
const std::vector<std::string>& moments();

}  // namespace tallybrook::test
