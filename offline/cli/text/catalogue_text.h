// The catalogue of plugin types as text for a person.
#pragma once

#include <string>
#include <vector>

// `lines`: the host's JSON object of every type. Types stand under their kind, in the catalogue's order.
std::string describeTypes(const std::vector<std::string>& lines);

// One type: its meaning and its parameters with type, default and meaning.
std::string describeType(const std::string& line);

// The names of all types.
std::vector<std::string> typeNames(const std::vector<std::string>& lines);
