# Asks the installed tool in PREFIX for its version, and looks for its manual page, its
# completion in bash and the licence. Any failure ends the script.
execute_process(COMMAND ${PREFIX}/${BINDIR}/halyard --version OUTPUT_VARIABLE said COMMAND_ERROR_IS_FATAL ANY)
if(NOT said STREQUAL "halyard ${VERSION}\n")
  message(FATAL_ERROR "the installed tool says '${said}'")
endif()

if(NOT EXISTS ${PREFIX}/${DOCDIR}/LICENSE)
  message(FATAL_ERROR "the licence is not installed")
endif()

file(STRINGS ${PREFIX}/${MANDIR}/man1/halyard.1 title LIMIT_COUNT 1)
if(NOT title MATCHES "^\\.TH HALYARD 1 ")
  message(FATAL_ERROR "the manual page begins with '${title}'")
endif()

execute_process(
  COMMAND bash -c "source ${PREFIX}/${DATADIR}/bash-completion/completions/halyard && complete -p halyard"
  COMMAND_ERROR_IS_FATAL ANY)
