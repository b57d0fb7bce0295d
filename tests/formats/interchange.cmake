# MIDI and ASCII tablature.
list(APPEND VT_FORMATS_TEST_SOURCES
  ${CMAKE_CURRENT_LIST_DIR}/interchange_test_util.cpp
  ${CMAKE_CURRENT_LIST_DIR}/midi_walk_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/midi_export_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/midi_reader_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/midi_import_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/midi_roundtrip_test.cpp
  ${CMAKE_CURRENT_LIST_DIR}/ascii_test.cpp
)
