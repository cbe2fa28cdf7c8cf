// Asked by the leak sanitizer, if it is built in: fontconfig keeps its configuration until the process ends.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig\n"; }
