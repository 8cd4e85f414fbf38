// The owned-value set beside other sets of addresses: filling, emptying, and one out for each one in.
#include <absl/container/flat_hash_set.h>

#include <boost/unordered/unordered_flat_set.hpp>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "floors.h"
#include "host.h"
#include "pointer_set/pointer_hash.h"
#include "pointer_set/pointer_set_algorithm.h"

namespace Bench {

namespace {

using Key = std::uint64_t;

// The module's, with the settings of the offline host.
class OwnedValueSet {
  public:
    ~OwnedValueSet() { kelmo_free(set.entries, 0); }
    void insert(Key key) { Algorithm::insert(set, key, true); }
    bool erase(Key key) {
        return Algorithm::remove(set, key, [] {});
    }
    std::size_t size() const { return set.count; }

  private:
    using Algorithm = KUtils::PointerSetAlgorithm<KUtils::PointerHash>;
    KUtils::PointerSet set = {nullptr, 0, 0, KUtils::POINTER_SET_FIRST_NEIGHBOURHOOD, 0.25f, 0.75f, 48};
};

template <class Set>
class PublicSet {
  public:
    void insert(Key key) { set.insert(key); }
    bool erase(Key key) { return set.erase(key) != 0; }
    std::size_t size() const { return set.size(); }

  private:
    Set set;
};

// Addresses as a heap gives them to values, in an order of their own.
std::vector<Key> addresses(std::size_t count) {
    std::vector<Key> keys(count);
    for (std::size_t i = 0; i < count; ++i) keys[i] = 0x7f0000000000 + 160 * i;
    std::uint64_t state = 1;
    for (std::size_t i = count; i > 1; --i) {
        state = state * 6364136223846793005u + 1442695040888963407u;
        std::swap(keys[i - 1], keys[(state >> 33) % i]);
    }
    return keys;
}

const std::vector<Key>& keysOf(std::size_t count) {
    static std::vector<Key> keys;
    if (keys.size() != count) keys = addresses(count);
    return keys;
}

// Seconds an operation. Small sets are done over until enough operations were timed.
template <class Set>
double timeOf(const std::string& job, std::size_t count) {
    const std::vector<Key>& keys = keysOf(count);
    const std::size_t rounds = count < 100000 ? 100000 / count : 1;
    double seconds = 0;
    std::size_t operations = 0;
    for (std::size_t round = 0; round < rounds; ++round) {
        auto set = std::make_unique<Set>();
        const double start = processorTime();
        for (const Key key : keys) set->insert(key);
        const double filled = processorTime();
        if (set->size() != count) return -1.0;
        if (job == "insert") {
            seconds += filled - start;
            operations += count;
        } else if (job == "remove") {
            for (const Key key : keys) set->erase(key);
            seconds += processorTime() - filled;
            operations += count;
            if (set->size() != 0) return -1.0;
        } else if (job == "churn") {
            // A new address, 8 bytes beside the one that goes.
            for (const Key key : keys) {
                set->erase(key);
                set->insert(key + 8);
            }
            seconds += processorTime() - filled;
            operations += 2 * count;
            if (set->size() != count) return -1.0;
        } else {
            return -1.0;
        }
    }
    return seconds / static_cast<double>(operations);
}

}  // namespace

PyObject* setTime(PyObject*, PyObject* args) {
    const char* contender = nullptr;
    const char* job = nullptr;
    Py_ssize_t count = 0;
    if (!PyArg_ParseTuple(args, "ssn", &contender, &job, &count)) return nullptr;
    const std::string name = contender;
    const auto keys = static_cast<std::size_t>(count);
    double seconds = -1.0;
    if (name == "module") seconds = timeOf<OwnedValueSet>(job, keys);
    if (name == "std") seconds = timeOf<PublicSet<std::unordered_set<Key>>>(job, keys);
    if (name == "abseil") seconds = timeOf<PublicSet<absl::flat_hash_set<Key>>>(job, keys);
    if (name == "boost") seconds = timeOf<PublicSet<boost::unordered_flat_set<Key>>>(job, keys);
    if (seconds < 0)
        return PyErr_Format(PyExc_ValueError, "no such set or job, or the set lost a key: %s %s", contender, job);
    return PyFloat_FromDouble(seconds);
}

}  // namespace Bench
