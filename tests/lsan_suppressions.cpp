// Leak reports of system libraries that are not ours to fix, for the
// sanitizer build: fontconfig keeps its caches for the life of the process,
// whatever Qt does at exit.
extern "C" const char* __lsan_default_suppressions() {  // NOLINT: the sanitizer's hook
  return "leak:libfontconfig.so\n";
}
