// A library that calls what nobody has.
extern "C" void aFunctionThatNobodyHas();
extern "C" void callIt() { aFunctionThatNobodyHas(); }
