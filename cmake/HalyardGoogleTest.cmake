# GTest::gtest and GTest::gtest_main: the system's libraries for native builds; for
# Windows, where there are none, they are built from the sources that Debian's package
# googletest installs.
if(NOT WIN32)
  find_package(GTest REQUIRED)
  return()
endif()

set(HALYARD_GOOGLETEST_SOURCE /usr/src/googletest/googletest CACHE PATH "The sources of GoogleTest.")
add_subdirectory(${HALYARD_GOOGLETEST_SOURCE} ${CMAKE_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
