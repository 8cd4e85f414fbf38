// One plugin line of the translated scene before it is written. Small values are kept as their JSON text;
// meshes are written straight from the reader's data when their turn comes.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "convert/output/scene_output.h"

namespace Translation {

enum class RecordKind { settings, texture, material, geometry, node, light, camera };

struct Reference {
    std::string plugin;
    std::string output;  // empty: the plugin itself
};

class Record {
  public:
    // `dccName`: what the DCC calls it, empty when it has no name there.
    Record(RecordKind kind, std::string type, std::string name, std::string dccName)
        : kind_(kind), type_(std::move(type)), name_(std::move(name)), dccName_(std::move(dccName)) {}

    void flag(const char* param, bool value);
    void integer(const char* param, int value);
    void real(const char* param, float value);
    void precise(const char* param, double value);
    void text(const char* param, const std::string& value);
    void numbers(const char* param, const float* values, std::size_t count);
    void json(const char* param, const std::string& text);
    void refer(const char* param, const Reference& to);

    // Writes further parameters, each begun with SceneOutput::param.
    void later(std::function<void(SceneOutput&)> write) { later_ = std::move(write); }

    // Something visible that keeps what it refers to in the scene.
    void setVisible() { visible_ = true; }
    void setDeferred() { deferred_ = true; }
    void setName(const std::string& name) { name_ = name; }

    RecordKind kind() const { return kind_; }
    const std::string& name() const { return name_; }
    const std::string& params() const { return params_; }
    bool visible() const { return visible_; }
    bool deferred() const { return deferred_; }
    const std::vector<std::string>& references() const { return references_; }

    void write(SceneOutput& out) const;

  private:
    void begin(const char* param);

    RecordKind kind_;
    std::string type_;
    std::string name_;
    std::string dccName_;
    std::string params_;  // without the braces
    std::vector<std::string> references_;
    std::function<void(SceneOutput&)> later_;
    bool visible_ = false;
    bool deferred_ = false;
};

}  // namespace Translation
