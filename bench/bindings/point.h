// Three numbers as a wrapped library has them: a point or a colour.
#pragma once

namespace BenchScene {

struct Point {
    Point() : x(0), y(0), z(0) {}
    Point(float first, float second, float third) : x(first), y(second), z(third) {}
    float x, y, z;
};

}  // namespace BenchScene
