// What a user of a binding maker would wrap: the host's scene behind plain functions with C++ types.
//
// Errors: std::runtime_error for what does not exist.
#pragma once

#include <string>
#include <vector>

namespace BenchScene {

// Takes the manager from the host library at `path`, which the process has loaded already.
void connect(const std::string& path);

bool exists(const std::string& plugin);
double getFloat(const std::string& plugin, const std::string& param);
void setFloat(const std::string& plugin, const std::string& param, double value);
std::vector<float> getFloatList(const std::string& plugin, const std::string& param);
std::vector<std::string> findByName(const std::string& pattern);

}  // namespace BenchScene
