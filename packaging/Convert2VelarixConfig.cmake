# SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
# SPDX-License-Identifier: MIT

# Targets: Convert2Velarix::core, what the converter window does, and Convert2Velarix::field, what
# convert2velarix-field does.
include(CMakeFindDependencyMacro)
find_dependency(Qt6 6.4 COMPONENTS Core)
include("${CMAKE_CURRENT_LIST_DIR}/Convert2VelarixTargets.cmake")
