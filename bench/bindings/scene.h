// What a user of a binding maker would wrap: the host's scene behind plain functions with C++ types.
//
// Ownership: the values that were set are the wrapper's; each goes when it is replaced, all go with the next connect.
// Errors: std::runtime_error for what does not exist or is refused.
#pragma once

#include <string>
#include <vector>

#include "point.h"

namespace BenchScene {

// Takes the manager from the host library at `path`, which the process has loaded already.
void connect(const std::string& path);

bool exists(const std::string& plugin);
bool paramExists(const std::string& plugin, const std::string& param);
std::vector<std::string> findByName(const std::string& pattern);

// Makes a plugin of the same type with the same values; its name.
std::string duplicate(const std::string& source, const std::string& name);

int getInt(const std::string& plugin, const std::string& param);
double getFloat(const std::string& plugin, const std::string& param);
Point getVector(const std::string& plugin, const std::string& param);
Point getColor(const std::string& plugin, const std::string& param);
std::string getString(const std::string& plugin, const std::string& param);
std::vector<int> getIntList(const std::string& plugin, const std::string& param);
std::vector<float> getFloatList(const std::string& plugin, const std::string& param);
std::vector<Point> getVectorList(const std::string& plugin, const std::string& param);

void setInt(const std::string& plugin, const std::string& param, int value);
void setFloat(const std::string& plugin, const std::string& param, double value);
void setVector(const std::string& plugin, const std::string& param, const Point& value);
void setColor(const std::string& plugin, const std::string& param, const Point& value);
void setString(const std::string& plugin, const std::string& param, const std::string& value);
void setIntList(const std::string& plugin, const std::string& param, const std::vector<int>& values);
void setFloatList(const std::string& plugin, const std::string& param, const std::vector<float>& values);
void setVectorList(const std::string& plugin, const std::string& param, const std::vector<Point>& values);

}  // namespace BenchScene
