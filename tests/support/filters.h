// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

// The file dialogs' filters, as the labels of the window show them.

inline const QString generic = "Generic text file (*.txt)";
inline const QString seisImager = "SeisImager traveltimes (*.vs)";
inline const QString geogiga = "Geogiga text file (*.txt)";
inline const QString winsism = "Geo2X Winsism XYZ file (*.xyz)";
inline const QString su = "Seismic Unix (*.su)";
inline const QString dolang = "Dolang seismic file (*.*DT  )";
inline const QString allFiles = "All Files (*)";
