# vorn_module(target [RESOURCES file.rc] [PICTURES folder] [INCLUDE folders...] [DEPENDS files...]):
# makes target a module of the desktop it runs on.
#   Windows: the resources are compiled and linked in; the loader calls DllMain.
#   In memory: the same compiled resources are embedded, and a piece of start-up code registers the
#   module with the desktop and calls its DllMain (or, for a program, only registers it).
# PICTURES names a folder of pictures drawn as text (see scripts/make_pictures.py); the script finds
# them as x.bmp, x.cur or x.ico. Headers beside the script are depended on without being named.
set(VORN_MODULE_DIR ${CMAKE_CURRENT_LIST_DIR})
set(VORN_MAKE_PICTURES ${CMAKE_CURRENT_LIST_DIR}/../scripts/make_pictures.py)

# Sets out_files to the files that the texts in folder become, in out_folder of the build.
function(vorn_pictures folder out_folder out_files)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(pictures ${CMAKE_CURRENT_BINARY_DIR}/pictures)
  get_filename_component(folder ${folder} ABSOLUTE)
  file(GLOB texts CONFIGURE_DEPENDS ${folder}/*.txt)
  set(made "")
  foreach(text ${texts})
    file(STRINGS ${text} kind REGEX "^(bitmap|cursor|icon) " LIMIT_COUNT 1)
    string(REGEX REPLACE " .*" "" kind "${kind}")
    string(REPLACE "bitmap" "bmp" suffix "${kind}")
    string(REPLACE "cursor" "cur" suffix "${suffix}")
    string(REPLACE "icon" "ico" suffix "${suffix}")
    get_filename_component(name ${text} NAME_WE)
    set(file ${pictures}/${name}.${suffix})
    add_custom_command(OUTPUT ${file}
      COMMAND ${Python3_EXECUTABLE} ${VORN_MAKE_PICTURES} ${pictures} ${text}
      DEPENDS ${text} ${VORN_MAKE_PICTURES}
      COMMENT "Drawing ${name}.${suffix}" VERBATIM)
    list(APPEND made ${file})
  endforeach()
  set(${out_folder} ${pictures} PARENT_SCOPE)
  set(${out_files} ${made} PARENT_SCOPE)
endfunction()

function(vorn_module target)
  cmake_parse_arguments(ARG "" "RESOURCES;PICTURES" "INCLUDE;DEPENDS" ${ARGN})
  if(ARG_PICTURES)
    vorn_pictures(${ARG_PICTURES} folder files)
    list(APPEND ARG_INCLUDE ${folder})
    list(APPEND ARG_DEPENDS ${files})
  endif()
  if(ARG_RESOURCES)
    get_filename_component(rc ${ARG_RESOURCES} ABSOLUTE)
    get_filename_component(beside ${rc} DIRECTORY)
    file(GLOB headers CONFIGURE_DEPENDS ${beside}/*.h)
    list(APPEND ARG_INCLUDE ${beside})
    list(APPEND ARG_DEPENDS ${headers})
  endif()
  if(WIN32)
    if(ARG_RESOURCES)
      target_sources(${target} PRIVATE ${rc})
      set_source_files_properties(${rc} PROPERTIES
        OBJECT_DEPENDS "${ARG_DEPENDS}" INCLUDE_DIRECTORIES "${ARG_INCLUDE}")
    endif()
    return()
  endif()

  set(res "")
  if(ARG_RESOURCES)
    set(res ${CMAKE_CURRENT_BINARY_DIR}/${target}.res)
    find_program(VORN_WINDRES x86_64-w64-mingw32-windres REQUIRED)
    set(includes "")
    foreach(dir ${ARG_INCLUDE})
      list(APPEND includes -I ${dir})
    endforeach()
    add_custom_command(OUTPUT ${res}
      COMMAND ${VORN_WINDRES} ${includes} -O res ${rc} ${res}
      DEPENDS ${rc} ${ARG_DEPENDS} WORKING_DIRECTORY ${CMAKE_CURRENT_SOURCE_DIR}
      COMMENT "Compiling resources of ${target}" VERBATIM)
  endif()
  get_target_property(type ${target} TYPE)
  set(kind MODULE_IS_PROGRAM)
  if(type STREQUAL "SHARED_LIBRARY")
    set(kind MODULE_IS_LIBRARY)
  endif()
  set(glue ${CMAKE_CURRENT_BINARY_DIR}/${target}_module.cpp)
  get_target_property(name ${target} OUTPUT_NAME)
  if(NOT name)
    set(name ${target})
  endif()
  set(MODULE_NAME ${name})
  set(MODULE_KIND ${kind})
  set(MODULE_RES ${res})
  configure_file(${VORN_MODULE_DIR}/module.cpp.in ${glue} @ONLY)
  set_source_files_properties(${glue} PROPERTIES OBJECT_DEPENDS "${res}")
  target_sources(${target} PRIVATE ${glue})
endfunction()
