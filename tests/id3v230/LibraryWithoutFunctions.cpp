// A library that can be loaded but has none of the functions that are looked for.
extern "C" int nothingOfUse() { return 0; }
