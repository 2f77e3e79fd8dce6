# A test program that plays on the windows of the program: the stage and the hand of tests/window and their `main`.
# INCLUDES are further folders that its sources include from.
find_package(Qt6 REQUIRED COMPONENTS Test)

function(marvolin_window_test name)
  cmake_parse_arguments(T "" "" "SOURCES;LINKS;INCLUDES" ${ARGN})
  marvolin_test(${name} WINDOW_PCH SOURCES
    ../window/hand_state.cpp
    ../window/main.cpp
    ../window/stage.cpp
    ../window/whole_hand.cpp
    ${T_SOURCES}
  LINKS
    marvolin_persistence
    marvolin_window
    Qt6::Test
    ${T_LINKS}
  )
  target_include_directories(${name}_test PRIVATE
    ${PROJECT_SOURCE_DIR}/tests ${PROJECT_SOURCE_DIR}/tests/window ${T_INCLUDES})
endfunction()
