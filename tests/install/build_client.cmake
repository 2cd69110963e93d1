# Configures the client project SOURCE in an empty BUILD folder against the package in
# PREFIX, found in the given WAY, builds it and runs it. Any failure ends the script.
file(REMOVE_RECURSE ${BUILD})
set(ENV{PKG_CONFIG_PATH} ${PREFIX}/${LIBDIR}/pkgconfig)

execute_process(
  COMMAND ${CMAKE_COMMAND} -G Ninja -S ${SOURCE} -B ${BUILD} -D CMAKE_CXX_COMPILER=${COMPILER}
          -D CMAKE_PREFIX_PATH=${PREFIX} -D CLIENT_FINDS_HALYARD_BY=${WAY}
  COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD} COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${BUILD}/client COMMAND_ERROR_IS_FATAL ANY)
