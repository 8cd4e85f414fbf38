// The adapter's references to plugins: by name, with an output, inside a list, and what their failure says.
#include <string>

#include "check.h"
#include "expression.h"
#include "frame/problem.h"
#include "frame/py_ref.h"
#include "param/adapter/python_param.h"
#include "pending_error.h"
#include "stub_host.h"

using namespace KUtils;
using namespace KUtils::Python;

namespace {

// getPlugin as text: the plugin's name, "null", or the problem's message; then the output's name.
std::string plugin(PythonParam& param, int index, const char** output) {
    try {
        const PluginBase* found = param.getPlugin(index, 0.0, output);
        return found != nullptr ? pluginName(found) : "null";
    } catch (const SceneAccessProblem& problem) {
        return problem.message;
    }
}

}  // namespace

TEST_CASE(references) {
    StubHost host;
    StubPlugin node;
    node.type.declare("outColor", 1000);
    host.add("node1", node);
    struct Row {
        const char* expression;
        int index;
        const char* result;
        const char* output;
    };
    const char* NO_EMPTY = "The plugin \"\" doesn't exist.";
    const char* NO_OUTPUT = "A parameter with name \"outcolor\" doesn't exist for plugin \"node1\".";
    const Row rows[] = {
        {"(10, 'node1')", 0, "node1", "before"},
        {"(10, u'node1')", -1, "node1", "before"},
        {"(10, 'node2')", 0, "The plugin \"node2\" doesn't exist.", "before"},
        {"(10, 5)", 0, NO_EMPTY, "before"},
        {"(1000, ('node1', 'outColor'))", 0, "node1", "outColor"},
        {"(1000, ('node1', 'outcolor'))", 0, NO_OUTPUT, "outcolor"},
        {"(1000, ('node1', 5))", 0, "node1", nullptr},
        {"(1000, ('node1',))", 0, "node1", nullptr},
        {"(1000, 'node1')", 0, NO_EMPTY, "before"},
        {"(11, 'node1')", 0, "null", nullptr},
        {"(13, 'node1')", 0, "null", nullptr},
        {"(1001, ('node1', 'outColor'))", 0, "null", nullptr},
        {"(0, 5)", 0, "null", nullptr},
        {"(10, [(10, 'node1'), (1000, ('node1', 'outColor')), (0, 1)])", 0, "node1", "before"},
        {"(10, [(10, 'node1'), (1000, ('node1', 'outColor')), (0, 1)])", 1, "node1", "outColor"},
        {"(10, [(10, 'node1'), (1000, ('node1', 'outColor')), (0, 1)])", 2, "null", nullptr},
        {"(10, [(10, 'node1'), (1000, ('node1', 'outColor')), (0, 1)])", 3, "null", "before"},
        {"(10, [(10, 'node1'), (1000, ('node1', 'outColor')), (0, 1)])", -1, "null", "before"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.expression);
        const PyRef tagged = python(row.expression);
        PythonParam param(tagged.get(), "p");
        const char* output = "before";
        CHECK_TEXT(plugin(param, row.index, &output).c_str(), row.result);
        CHECK_TEXT(output, row.output);
        takeError();
    }
    // The declaration's own text, which outlives the script's.
    const PyRef tagged = python("(1000, ('node1', 'outColor'))");
    PythonParam param(tagged.get(), "p");
    const char* output = nullptr;
    param.getPlugin(0, 0.0, &output);
    CHECK(output == node.type.records[0].name);
    // Without a place for it the output is not looked up.
    const PyRef unknown = python("(1000, ('node1', 'nothing'))");
    PythonParam unchecked(unknown.get(), "p");
    CHECK_TEXT(plugin(unchecked, 0, nullptr).c_str(), "node1");
}

TEST_CASE(aReferenceInsideAListOfLists) {
    StubHost host;
    StubPlugin node;
    host.add("node1", node);
    const PyRef tagged = python("(12, [(10, ('label', 'node1')), (10, 'node1')])");
    PythonParam param(tagged.get(), "p");
    // By index the element's value is the name.
    CHECK_TEXT(plugin(param, 1, nullptr).c_str(), "node1");
    // Descended into, the name is the second item of the value.
    const ListHandle opened = param.openListImpl(0);
    CHECK_TEXT(plugin(param, 0, nullptr).c_str(), "node1");
    param.closeList(opened);
    param.openListImpl(1);
    CHECK_TEXT(plugin(param, 0, nullptr).c_str(), "The plugin \"\" doesn't exist.");
    takeError();
}
