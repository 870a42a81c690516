#pragma once

#include <cstdint>
#include <filesystem>

namespace tallybrook::test {

/// Makes the data folder that the life of a seed begins with: a logbook with rows that another program may
/// have left in it, the handheld's files, and for most a configuration.
void makeHome(std::uint64_t seed, const std::filesystem::path& data);

}  // namespace tallybrook::test
