# Compile flags shared by every target of the project.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(VORN_CCACHE ccache)
if(VORN_CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${VORN_CCACHE})
  set(CMAKE_C_COMPILER_LAUNCHER ${VORN_CCACHE})
endif()

# Sanitizer builds are run far more often than they are debugged.
set(CMAKE_CXX_FLAGS_DEBUG "-O1 -g1" CACHE STRING "" FORCE)

if(VORN_SANITIZE)
  add_compile_options(-fsanitize=${VORN_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VORN_SANITIZE})
  if(VORN_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
  add_compile_definitions(VORN_SANITIZERS=1)
endif()
if(VORN_COVERAGE)
  # Branches as they stand in the source: the optimiser would make others of them.
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()
if(WIN32)
  # The compiler's run-time libraries go into each module: nothing else is to be deployed.
  add_link_options(-static)
  add_compile_definitions(UNICODE _UNICODE WIN32_LEAN_AND_MEAN NOMINMAX)
endif()

# vorn_warnings(target): the project's warnings, as errors.
function(vorn_warnings target)
  target_compile_options(${target} PRIVATE
    -Wall -Wextra -Wshadow -Wconversion -Wno-sign-conversion -Werror)
  # Clang objects to shapes that are public contract: overloads that hide those of a base, fields kept for
  # their place, classes with virtual functions and a plain destructor.
  target_compile_options(${target} PRIVATE
    $<$<CXX_COMPILER_ID:Clang>:-Wno-overloaded-virtual>
    $<$<CXX_COMPILER_ID:Clang>:-Wno-unused-private-field>
    $<$<CXX_COMPILER_ID:Clang>:-Wno-delete-non-abstract-non-virtual-dtor>)
endfunction()
