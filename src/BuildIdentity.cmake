# Writes the header that tells where and when the library was built.
#   OUTPUT: the header; MACHINE: the machine's name, asked of the system when empty.
# The time follows SOURCE_DATE_EPOCH, then in UTC, so that a build can be repeated bit by bit.
if(NOT MACHINE)
  cmake_host_system_information(RESULT MACHINE QUERY HOSTNAME)
endif()
string(REGEX REPLACE "[^A-Za-z0-9._-]" "_" MACHINE "${MACHINE}")
if(DEFINED ENV{SOURCE_DATE_EPOCH})
  string(TIMESTAMP time "%b %d %Y at %H:%M:%S" UTC)
else()
  string(TIMESTAMP time "%b %d %Y at %H:%M:%S")
endif()
file(WRITE ${OUTPUT} "#define VORN_BUILD_MACHINE \"${MACHINE}\"\n#define VORN_BUILD_TIME \"(${time})\"\n")
