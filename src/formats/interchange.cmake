# MIDI and ASCII tablature: the walk shared with the player, export and import.
target_sources(vt_formats PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/src/hex.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/walk_input.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/midi_walk.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/midi_conductor.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/midi_export.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/midi_reader.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/midi_to_tab.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/midi_import.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/ascii_export.cpp
  ${CMAKE_CURRENT_LIST_DIR}/src/ascii_import.cpp
)
