# cython: language_level=2
from libcpp cimport bool
from libcpp.string cimport string
from libcpp.vector cimport vector

cdef extern from "scene.h" namespace "BenchScene":
    cdef cppclass Point:
        Point()
        Point(float, float, float)
        float x, y, z
    void c_connect "BenchScene::connect"(const string&) except +
    bool c_exists "BenchScene::exists"(const string&) except +
    bool c_param_exists "BenchScene::paramExists"(const string&, const string&) except +
    vector[string] c_find_by_name "BenchScene::findByName"(const string&) except +
    string c_duplicate "BenchScene::duplicate"(const string&, const string&) except +
    int c_get_int "BenchScene::getInt"(const string&, const string&) except +
    double c_get_float "BenchScene::getFloat"(const string&, const string&) except +
    Point c_get_vector "BenchScene::getVector"(const string&, const string&) except +
    Point c_get_color "BenchScene::getColor"(const string&, const string&) except +
    string c_get_string "BenchScene::getString"(const string&, const string&) except +
    vector[int] c_get_int_list "BenchScene::getIntList"(const string&, const string&) except +
    vector[float] c_get_float_list "BenchScene::getFloatList"(const string&, const string&) except +
    vector[Point] c_get_vector_list "BenchScene::getVectorList"(const string&, const string&) except +
    void c_set_int "BenchScene::setInt"(const string&, const string&, int) except +
    void c_set_float "BenchScene::setFloat"(const string&, const string&, double) except +
    void c_set_vector "BenchScene::setVector"(const string&, const string&, const Point&) except +
    void c_set_color "BenchScene::setColor"(const string&, const string&, const Point&) except +
    void c_set_string "BenchScene::setString"(const string&, const string&, const string&) except +
    void c_set_int_list "BenchScene::setIntList"(const string&, const string&, const vector[int]&) except +
    void c_set_float_list "BenchScene::setFloatList"(const string&, const string&, const vector[float]&) except +
    void c_set_vector_list "BenchScene::setVectorList"(const string&, const string&, const vector[Point]&) except +


def connect(path):
    c_connect(path)


def exists(plugin):
    if isinstance(plugin, unicode):
        plugin = plugin.encode('utf-8')
    return c_exists(plugin)


def paramExists(plugin, param):
    return c_param_exists(plugin, param)


def findByName(pattern):
    return c_find_by_name(pattern)


def duplicate(source, name):
    return c_duplicate(source, name)


def getInt(plugin, param):
    return c_get_int(plugin, param)


def getFloat(plugin, param):
    return c_get_float(plugin, param)


def getVector(plugin, param):
    cdef Point point = c_get_vector(plugin, param)
    return point.x, point.y, point.z


def getColor(plugin, param):
    cdef Point point = c_get_color(plugin, param)
    return point.x, point.y, point.z


def getString(plugin, param):
    return c_get_string(plugin, param)


def getIntList(plugin, param):
    return c_get_int_list(plugin, param)


def getFloatList(plugin, param):
    return c_get_float_list(plugin, param)


def getVectorList(plugin, param):
    cdef vector[Point] points = c_get_vector_list(plugin, param)
    cdef size_t i
    return [(points[i].x, points[i].y, points[i].z) for i in range(points.size())]


def setInt(plugin, param, value):
    c_set_int(plugin, param, value)


def setFloat(plugin, param, value):
    c_set_float(plugin, param, value)


def setVector(plugin, param, value):
    x, y, z = value
    c_set_vector(plugin, param, Point(x, y, z))


def setColor(plugin, param, value):
    r, g, b = value
    c_set_color(plugin, param, Point(r, g, b))


def setString(plugin, param, value):
    c_set_string(plugin, param, value)


def setIntList(plugin, param, values):
    c_set_int_list(plugin, param, values)


def setFloatList(plugin, param, values):
    c_set_float_list(plugin, param, values)


def setVectorList(plugin, param, values):
    cdef vector[Point] points
    points.reserve(len(values))
    for x, y, z in values:
        points.push_back(Point(x, y, z))
    c_set_vector_list(plugin, param, points)
