// How JSON is written.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

namespace Brisel::Gallery {

/// Members stay in the order in which they were added.
using Json = nlohmann::ordered_json;

/// A number as a person would write it: whole ones without a fraction, all others with as few digits as read back as
/// the same number. It must be finite.
Json jsonNumber(double number);

/// A list as text, each element on a line of its own.
std::string jsonLines(const Json& list);

}  // namespace Brisel::Gallery
