#pragma once

#include <filesystem>

namespace tallybrook::bench {

/// Writes what a logbook holds as an old one.
void writeJetSample(const std::filesystem::path& logbook, const std::filesystem::path& old);

}  // namespace tallybrook::bench
