/// The tool's main() under another name.
#define main tool_main
#include "cli/main.cpp"
