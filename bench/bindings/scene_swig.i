%module scene_swig
%{
#include "scene.h"
%}
%include <std_string.i>
%include <std_vector.i>
%include <exception.i>
%include "point.h"
%template(IntList) std::vector<int>;
%template(FloatList) std::vector<float>;
%template(PointList) std::vector<BenchScene::Point>;
%template(NameList) std::vector<std::string>;
%exception {
    try {
        $action
    } catch (const std::exception& error) {
        SWIG_exception(SWIG_RuntimeError, error.what());
    }
}
%include "scene.h"
