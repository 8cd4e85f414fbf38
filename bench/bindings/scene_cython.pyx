# cython: language_level=2
from libcpp cimport bool
from libcpp.string cimport string
from libcpp.vector cimport vector

cdef extern from "scene.h" namespace "BenchScene":
    void c_connect "BenchScene::connect"(const string&) except +
    bool c_exists "BenchScene::exists"(const string&) except +
    double c_get_float "BenchScene::getFloat"(const string&, const string&) except +
    void c_set_float "BenchScene::setFloat"(const string&, const string&, double) except +
    vector[float] c_get_float_list "BenchScene::getFloatList"(const string&, const string&) except +
    vector[string] c_find_by_name "BenchScene::findByName"(const string&) except +


def connect(path):
    c_connect(path)


def exists(plugin):
    return c_exists(plugin)


def getFloat(plugin, param):
    return c_get_float(plugin, param)


def setFloat(plugin, param, value):
    c_set_float(plugin, param, value)


def getFloatList(plugin, param):
    return c_get_float_list(plugin, param)


def findByName(pattern):
    return c_find_by_name(pattern)
