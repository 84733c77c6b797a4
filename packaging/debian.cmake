# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# What CPack makes Debian packages of: one for the programs, one for the library.

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME convert2velarix)
set(CPACK_PACKAGE_VENDOR "the Convert2Velarix authors")
# There is no address yet at which packages are looked after.
set(CPACK_PACKAGE_CONTACT "the Convert2Velarix authors <convert2velarix@packages.invalid>")
# Older than the 1 that Debian would begin with.
set(CPACK_DEBIAN_PACKAGE_RELEASE 0upstream1)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_COMPONENTS_ALL programs development)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/finish_packages.cmake)

set(CPACK_DEBIAN_PROGRAMS_PACKAGE_NAME convert2velarix)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PROGRAMS_PACKAGE_SUGGESTS qt6-wayland)
set(CPACK_DEBIAN_PROGRAMS_DESCRIPTION "converter for seismic refraction surveys
Convert2Velarix turns first-break picks of several vendors into traveltime
files for the Velarix tomography program, and seismic records into SEG2 files.
.
It has a window, the same conversions for scripts (convert2velarix-batch), and
a command that reads more formats, checks picks and records, and converts them
in every direction (convert2velarix-field).")
if(TARGET convert2velarix-view)
    string(APPEND CPACK_DEBIAN_PROGRAMS_DESCRIPTION "
.
A second window shows picks and records (convert2velarix-view).")
endif()

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libconvert2velarix-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev (>= 6.4)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "converter for seismic refraction surveys - library
Convert2Velarix turns first-break picks of several vendors into traveltime
files for the Velarix tomography program, and seismic records into SEG2 files.
.
This package has its conversions and its readers, writers and checks as static
libraries, with their headers and a CMake package.")
