# The editor: a key press on a long tablature, from the key to the bar on screen.
if(TARGET vt_editor)
  find_package(Qt6 REQUIRED COMPONENTS Widgets)
  vt_add_bench(NAME bench_editor DEPS vt_editor Qt6::Widgets
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_editor.cpp)
  # The program's data folder, beside the programs.
  target_compile_definitions(bench_editor PRIVATE VT_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
endif()

# The editor on the piece at the format's limits.
if(TARGET vt_editor)
  vt_add_bench(NAME bench_editor_limits DEPS vt_editor vt_formats Qt6::Widgets
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_editor_limits.cpp)
  target_compile_definitions(bench_editor_limits PRIVATE VT_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
endif()

# A MIDI input flooding the main window with the editor open.
if(TARGET vt_editor)
  vt_add_bench(NAME bench_midi_flood DEPS vt_editor Qt6::Widgets
    SOURCES ${CMAKE_CURRENT_LIST_DIR}/bench_midi_flood.cpp)
  target_include_directories(bench_midi_flood PRIVATE ${CMAKE_SOURCE_DIR}/src/shell/src)
  target_compile_definitions(bench_midi_flood PRIVATE VT_BIN_DIR="${CMAKE_BINARY_DIR}/bin")
endif()
