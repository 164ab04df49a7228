// What the sanitizers find in the browser's engine and what it calls, which are not ours to mend.

// NOLINTBEGIN: names that the sanitizers look for
extern "C" const char* __asan_default_options() { return "new_delete_type_mismatch=0"; }
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libQt6WebEngineCore\nleak:libfontconfig\nleak:libudev\n";
}
// NOLINTEND
