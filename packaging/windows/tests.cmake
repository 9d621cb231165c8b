# The tests on Windows: all of the core. Left out is what works a POSIX shell, signals, limits or a fault layer between
# the program and Linux, and what needs the windows; packaging/windows/compare runs the commands of havuz-cli instead.
set(HAVUZ_TEST_PATHS ${CMAKE_BINARY_DIR}/test_paths.h)
file(CONFIGURE OUTPUT ${HAVUZ_TEST_PATHS} CONTENT "#define HAVUZ_SOURCE_DIR \"${CMAKE_SOURCE_DIR}\"
#define HAVUZ_CLI \"${CMAKE_BINARY_DIR}/havuz-cli.exe\"
#define HAVUZ \"${CMAKE_BINARY_DIR}/havuz.exe\"
")
file(GLOB HAVUZ_TEST_SOURCES CONFIGURE_DEPENDS tests/*.cpp)
foreach(source ${HAVUZ_TEST_SOURCES})
  file(STRINGS ${source} posix REGEX "^#include <(unistd|sys/|fcntl|csignal)|cli_support.h|raster_surface.h|image_canvas.h|HavuzPictureMaker|fuzz/")
  file(STRINGS ${source} environment REGEX "program_folder.h|ui_support.h|setenv")
  if(posix)
    list(REMOVE_ITEM HAVUZ_TEST_SOURCES ${source})
  elseif(environment)
    set_source_files_properties(${source} PROPERTIES COMPILE_OPTIONS
      "-include;${CMAKE_SOURCE_DIR}/packaging/windows/environment.h")
  endif()
endforeach()
add_executable(havuz_tests ${HAVUZ_TEST_SOURCES})
target_include_directories(havuz_tests PRIVATE tests)
target_link_libraries(havuz_tests PRIVATE havuz_verification_cases havuz_core GTest::gtest GTest::gtest_main)
target_compile_options(havuz_tests PRIVATE -include ${HAVUZ_TEST_PATHS})
add_dependencies(havuz_tests havuz_programdir)
