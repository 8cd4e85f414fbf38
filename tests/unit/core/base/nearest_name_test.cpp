#include "core/base/nearest_name.h"

#include "support/check.h"

TEST_CASE(nearestNames) {
    struct Row {
        const char* wanted;
        const char* names[3];
        const char* best;
    };
    const Row rows[] = {
        {"MtlDifuse", {"MtlGlossy", "MtlDiffuse", "LightSun"}, "MtlDiffuse"},
        {"mtldiffuse", {"MtlDiffuse", "MtlDiffuse2", "x"}, "MtlDiffuse"},
        {"colour", {"color", "col", "cool"}, "color"},
        {"abc", {"abd", "abe", "abf"}, "abd"},  // equally near: the first
        {"abc", {"xyz", "", "abcdefghij"}, nullptr},
        {"GeomStaticMehs", {"GeomStaticNURBS", "GeomStaticMesh", "Geom"}, "GeomStaticMesh"},
        {"", {"a", "b", "c"}, nullptr},
        {"x", {"y", "z", "w"}, nullptr},
        {"flaot", {"bool", "float", "flat"}, "float"},  // neighbours that are swapped count once
        {"itn", {"int", "in", "it"}, "int"},
        {"verticees", {"vertex", "vertices", "faces"}, "vertices"},
    };
    for (const Row& row : rows) {
        CHECK_ROW(row.wanted);
        Offline::NearestName nearest(row.wanted);
        for (const char* name : row.names) nearest.offer(name);
        CHECK_TEXT(nearest.best(), row.best);
    }
}
