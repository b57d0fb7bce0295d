// Leak reports of system libraries that are not ours to fix, for the
// sanitizer build of the tests and of the program: fontconfig keeps its caches
// for the life of the process, whatever Qt does at exit, and so does libdbus
// for the session bus connection the desktop integration opens.
extern "C" const char* __lsan_default_suppressions() {  // NOLINT: the sanitizer's hook
  return "leak:libfontconfig.so\nleak:libdbus-1.so\n";
}
