# Installs BUILD into a folder of WORK and moves the result.
file(REMOVE_RECURSE ${WORK}/installed ${WORK}/moved)
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${WORK}/installed
  COMMAND_ERROR_IS_FATAL ANY OUTPUT_QUIET)
file(RENAME ${WORK}/installed ${WORK}/moved)

# Nothing that is read as text names a folder of this machine.
file(GLOB_RECURSE texts ${WORK}/moved/*.cmake ${WORK}/moved/*.pc)
list(LENGTH texts count)
if(count LESS 4)
  message(FATAL_ERROR "The CMake package or the pkg-config file is missing: ${texts}")
endif()
foreach(text ${texts})
  file(READ ${text} content)
  foreach(folder ${WORK} ${BUILD})
    string(FIND "${content}" ${folder} at)
    if(NOT at EQUAL -1)
      message(FATAL_ERROR "${text} names ${folder}")
    endif()
  endforeach()
endforeach()
