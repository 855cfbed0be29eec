// Memory that other libraries keep for the whole process without a pointer that the leak checker
// can find.

// NOLINTNEXTLINE(bugprone-reserved-identifier): the name under which the checker looks for it
extern "C" const char* __lsan_default_suppressions();

// NOLINTNEXTLINE(bugprone-reserved-identifier)
const char* __lsan_default_suppressions() {
    // Qt's plugin never frees what it knows about outputs.
    return "leak:libfontconfig.so\n"
           "leak:libQt6WaylandClient.so\n";
}
