// A source that raises in the middle of its cloning: nothing stays behind.
#include <cstddef>

#include "check.h"
#include "param/clone/clone_param_value.h"
#include "pointer_set/set_memory.h"
#include "stub_plugin.h"
#include "tree_source.h"

using namespace KUtils;

namespace {

struct Raised {};

// Raises at its second reference, when the object that is filled exists already.
class RaisingSource : public TreeSource {
  public:
    using TreeSource::TreeSource;
    PluginBase* getPlugin(int index, double time, const char** outputName) override {
        if (++asked == 2) throw Raised();
        return TreeSource::getPlugin(index, time, outputName);
    }
    int asked = 0;
};

}  // namespace

TEST_CASE(aRaisingSourceLeavesNothingBehind) {
    StubPlugin plugin("T");
    plugin.interfaces.push_back(EXT_TEXTURE);
    struct Row {
        const char* label;
        Node tree;
        int code;
        bool isList;
    };
    const Node two = list(10, {reference(10, &plugin), reference(10, &plugin)});
    const Row rows[] = {
        {"a texture, asked for twice", reference(10, &plugin), 11, false},
        {"a list of plugins", two, 10, true},
        {"a generic list", list(12, {two}), 12, true},
    };
    const std::size_t blocks = setMemory().blocks;
    for (const Row& row : rows) {
        CHECK_ROW(row.label);
        RaisingSource source(row.tree);
        bool raised = false;
        try {
            cloneParamValue(&plugin, source, row.code, row.isList);
        } catch (const Raised&) {
            raised = true;
        }
        CHECK(raised);
        CHECK_EQ(setMemory().blocks, blocks);
    }
}
