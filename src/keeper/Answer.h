#pragma once

#include "keeper/Command.h"
#include "keeper/Summary.h"

#include <cstdint>
#include <string>

#include <nlohmann/json.hpp>

// How commands answer: a text for people, or a line of JSON for programs.
namespace tallybrook::keeper {

using Json = nlohmann::ordered_json;

/// Writes the one of both that was asked for.
void answer(const Errand& errand, const std::string& text, const Json& json);

/// Writes what a person should know besides the answer, if there is anything.
void tellNote(const Errand& errand, const std::string& note);

Json jsonOf(const Counts& counts);

/// A whole number that a person has typed; throws WrongUsage, which names `what` it is.
std::int64_t numberIn(const std::string& text, const char* what);

}  // namespace tallybrook::keeper
