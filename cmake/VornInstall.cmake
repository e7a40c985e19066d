# What is installed: headers, modules, the CMake package VornComCtl and the pkg-config file
# vorncomctl. Nothing in them names the folder that they were installed to: it can be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(VORN_INCLUDE_DIR ${CMAKE_INSTALL_INCLUDEDIR}/vorncomctl)
set(VORN_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/VornComCtl)

# Sets out to header and all that it includes with quotes, relative to root: the public headers are
# those that the umbrella header reaches.
function(vorn_reached_headers out root header)
  set(reached "")
  set(waiting ${header})
  while(waiting)
    list(POP_FRONT waiting header)
    list(APPEND reached ${header})
    get_filename_component(beside ${header} DIRECTORY)
    file(STRINGS ${root}/${header} lines REGEX "^#include \"")
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${root}/${header})
    foreach(line ${lines})
      string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" included "${line}")
      if(beside AND EXISTS ${root}/${beside}/${included})
        cmake_path(SET included NORMALIZE ${beside}/${included})
        cmake_path(NORMAL_PATH included)
      endif()
      if(EXISTS ${root}/${included} AND NOT included IN_LIST reached AND NOT included IN_LIST waiting)
        list(APPEND waiting ${included})
      endif()
    endforeach()
  endwhile()
  set(${out} ${reached} PARENT_SCOPE)
endfunction()

# Gives target the name it has for users of the package, and its place in it.
function(vorn_install_module target name include_dirs)
  set_target_properties(${target} PROPERTIES EXPORT_NAME ${name} INSTALL_RPATH "$ORIGIN"
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  foreach(dir ${include_dirs})
    target_include_directories(${target} INTERFACE $<INSTALL_INTERFACE:${dir}>)
  endforeach()
  target_compile_features(${target} PUBLIC cxx_std_20)
  install(TARGETS ${target} EXPORT VornComCtlTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
endfunction()

set(VORN_ROOT ${PROJECT_SOURCE_DIR})
set(VORN_PC_INCLUDES "-I\${includedir}/vorncomctl -I\${includedir}/vorncomctl/framework")
if(WIN32)
  # The linker passes over -lname for an import library when it links statically.
  set(VORN_PC_LIBS "-L\${libdir} \${libdir}/libVornComCtl.dll.a -lVornFrameworkEntry \
\${libdir}/libVornFramework.dll.a -lcomctl32 -lgdi32 -lcomdlg32 -lmsimg32 -static")
else()
  set(VORN_PC_INCLUDES "${VORN_PC_INCLUDES} -I\${includedir}/vorncomctl/win32")
  set(VORN_PC_LIBS "-L\${libdir} -lVornComCtl -lVornFrameworkEntry -lVornFramework -lVornDesktop -pthread")
  vorn_install_module(VornDesktop Desktop "${VORN_INCLUDE_DIR};${VORN_INCLUDE_DIR}/win32")
  install(DIRECTORY ${VORN_ROOT}/desktop/include/ DESTINATION ${VORN_INCLUDE_DIR}/win32)
  install(FILES ${VORN_ROOT}/desktop/desktop.h ${VORN_ROOT}/desktop/module.h
    DESTINATION ${VORN_INCLUDE_DIR}/desktop)
endif()

vorn_install_module(VornFramework Framework ${VORN_INCLUDE_DIR}/framework)
vorn_install_module(VornFrameworkEntry FrameworkEntry ${VORN_INCLUDE_DIR}/framework)
install(DIRECTORY ${VORN_ROOT}/framework/include/ DESTINATION ${VORN_INCLUDE_DIR}/framework)

vorn_install_module(VornComCtl VornComCtl ${VORN_INCLUDE_DIR})
vorn_reached_headers(VORN_PUBLIC_HEADERS ${VORN_ROOT}/src VornComCtl.h)
list(APPEND VORN_PUBLIC_HEADERS resources/VornResource.h)
foreach(header ${VORN_PUBLIC_HEADERS})
  get_filename_component(folder ${header} DIRECTORY)
  install(FILES ${VORN_ROOT}/src/${header} DESTINATION ${VORN_INCLUDE_DIR}/${folder})
endforeach()

install(EXPORT VornComCtlTargets NAMESPACE VornComCtl:: DESTINATION ${VORN_CMAKE_DIR})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/VornComCtlConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/VornComCtlConfig.cmake INSTALL_DESTINATION ${VORN_CMAKE_DIR})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VornComCtlConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/VornComCtlConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/VornComCtlConfigVersion.cmake DESTINATION ${VORN_CMAKE_DIR})

file(RELATIVE_PATH VORN_PC_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
string(REGEX REPLACE "/$" "" VORN_PC_PREFIX ${VORN_PC_PREFIX})
configure_file(${CMAKE_CURRENT_LIST_DIR}/vorncomctl.pc.in ${CMAKE_CURRENT_BINARY_DIR}/vorncomctl.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/vorncomctl.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
