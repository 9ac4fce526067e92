// A shared library that is no module.
extern "C" int get_something() { return 1; }
