// Leak reports of system libraries that are not ours to fix, for the
// sanitizer build of the tests and of the program: fontconfig keeps its caches
// for the life of the process, whatever Qt does at exit, and so does libdbus
// for the session bus connection the desktop integration opens. The built-in
// synthesizer brings its own: its OpenMP worker pool (libgomp), the audio
// client it tries on start (libpulse, glib) and the libraries it opens; the
// printing system keeps its per-thread globals (libcups).
extern "C" const char* __lsan_default_suppressions() {  // NOLINT: the sanitizer's hook
  return "leak:libfontconfig.so\nleak:libdbus-1.so\nleak:libgomp.so\nleak:libpulse.so\n"
         "leak:libglib-2.0.so\nleak:_dl_map_object_deps\nleak:libcups.so\n";
}

// The thread-local storage of the synthesizer's OpenMP workers is handed to
// the leak checker with a bogus range once they have exited, and its tracer
// crashes on it after the test has passed. Without scanning thread-local
// storage the check is stricter, never looser: a block held only from there
// would be reported.
extern "C" const char* __lsan_default_options() {  // NOLINT: the sanitizer's hook
  return "use_tls=0";
}
