#pragma once

#include "store/file/Connection.h"

#include <filesystem>
#include <memory>
#include <stdexcept>

namespace tallybrook {

/// The logbook's file cannot be used: it is no logbook, is too new, or cannot be opened. what() is a text
/// for people that names the file and says what to do. The file is left as it was.
class LogbookRefused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Opens the logbook, or makes an empty one where there is no file. Throws LogbookRefused.
std::unique_ptr<Connection> openLogbook(const std::filesystem::path& file);

}  // namespace tallybrook
