// A module for another host: it needs a function that this one does not have.
extern "C" int functionThatNoHostHas();

extern "C" int get_plugin() { return functionThatNoHostHas(); }
