// A renderer of the tests' own under the whole module: the core, the host and the system that loads it. Each operation
// that the module can call says that it was reached, and raises there when it is told to.
//
// Ownership: a World makes all of it and takes it down; the values that the module registered are freed with it.
// Memory: the core's blocks come from tests/support/test_allocator.h.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "kelmo/param/plugin_parameter.h"

namespace stub {

// An exception that nobody but its thrower knows. Its address is that of the thrown object, as long as nobody copies.
class Foreign {
  public:
    Foreign() {
        thrown = this;
        copies = 0;
    }
    Foreign(const Foreign&) { ++copies; }

    static const Foreign* thrown;
    static int copies;
};

enum class Kind { Foreign, CoreMessage, Number };

// What has been reached, in order, since the plan was made, and at which of them (1: the first; 0: none) is raised.
struct Plan {
    std::vector<std::string> reached;
    std::size_t raiseAt = 0;
    Kind kind = Kind::Foreign;
};

extern Plan plan;

// The text and the number of the other kinds.
constexpr char MESSAGE[] = "the core's own words";
constexpr int NUMBER = 42;

// The main scene holds "thing", which carries a value of every kind, and "other"; one extra scene holds "extra". The
// type "Thing" declares what they carry. Files called "bad" cannot be read.
class World {
  public:
    World();
    ~World();
    World(const World&) = delete;
    World& operator=(const World&) = delete;

    // How often the host's library is loaded just now.
    int loads() const;
    void setBlockSize(std::int32_t slots);
    // Frees the scene that was made last, which no list holds.
    void freeNewestScene();
    // From now on no plugin is found, made, exported or enumerated but null; or none of them has a descriptor.
    void answerNoPlugins();
    void hideDescriptors();
    void hideOthersDescriptor();
    // The host's manager has no plugin manager; it has no set of owned values.
    void takePluginManager();
    void takeOwnedValues();
    // "other" has no name; no plugin has a list of values, and the type none of parameters.
    void takeOthersName();
    void takeLists();
    // The type's first parameter has no name, and the values that "extra" carries begin with a null one.
    void beginListsWithNulls();
    // Values cannot be cloned, though they say so; plugins take no value that they are given.
    void answerNoClones();
    void refuseValues();
    // "extra" carries so many values.
    void carryMany(std::size_t count);
    // How many levels are left open in the values that are carried.
    int openLevels() const;
    // How many values the host owns.
    std::uint32_t ownedValues() const;
    // The values that the plugins have taken.
    std::vector<KUtils::KelmoPluginParameter*> takenValues() const;

  private:
    struct Parts;
    std::unique_ptr<Parts> parts;
};

}  // namespace stub
