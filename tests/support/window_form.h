// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFormLayout>
#include <QSize>

// What the converter window's form says of its widgets.

inline constexpr int label = QFormLayout::LabelRole;
inline constexpr int field = QFormLayout::FieldRole;
inline constexpr int spanning = QFormLayout::SpanningRole;
inline constexpr int noRole = -1; ///< a cell of a box layout

/// A widget or layout in the cell of a layout; of a box layout the row is the place from 0.
struct Cell
{
    const char *name;
    const char *className;
    const char *parent; ///< nullptr where the tool box has its own widgets in between
    const char *layout;
    int row;
    int role;
    QSize minimumSize;
    const char *text;
};

inline const Cell cells[] = {
    {"toolBox", "QToolBox", "Convert2VelarixDialog", "verticalLayout", 0, noRole, {0, 0}, nullptr},

    {"label_8", "QLabel", "page_3", "formLayout_6", 0, label, {0, 0}, "Input file"},
    {"inputGenTxt", "QLineEdit", "page_3", "formLayout_6", 1, label, {400, 0}, ""},
    {"browseInputButton_3", "QPushButton", "page_3", "formLayout_6", 1, field, {0, 0}, "Browse"},
    {"widget_4", "QWidget", "page_3", "formLayout_6", 2, spanning, {36, 36}, nullptr},
    {"label_9", "QLabel", "page_3", "formLayout_7", 0, label, {0, 0}, "From:"},
    {"formatSelected_3", "QLabel", "page_3", "formLayout_7", 0, field, {0, 0}, "-"},
    {"label_10", "QLabel", "page_3", "formLayout_6", 4, label, {0, 0}, "Output file"},
    {"outputGenTxt", "QLineEdit", "page_3", "formLayout_6", 5, label, {400, 0}, ""},
    {"browseOutputButton_3", "QPushButton", "page_3", "formLayout_6", 5, field, {0, 0}, "Browse"},
    {"multiTTFiles_3",
     "QCheckBox",
     "widget_4",
     "horizontalLayout_4",
     0,
     noRole,
     {0, 0},
     "Multiple traveltimes files"},
    {"firstRawShotPos_3",
     "QCheckBox",
     "widget_4",
     "horizontalLayout_4",
     1,
     noRole,
     {0, 0},
     "First raw have shots position"},

    {"label", "QLabel", "page", "formLayout", 0, label, {0, 0}, "Input file"},
    {"inputEdit", "QLineEdit", "page", "formLayout", 1, label, {400, 0}, ""},
    {"browseInputButton", "QPushButton", "page", "formLayout", 1, field, {0, 0}, "Browse"},
    {"widget_2", "QWidget", "page", "formLayout", 2, spanning, {36, 36}, nullptr},
    {"label_2", "QLabel", "page", "formLayout_2", 0, label, {0, 0}, "From:"},
    {"formatSelected", "QLabel", "page", "formLayout_2", 0, field, {0, 0}, "-"},
    {"label_3", "QLabel", "page", "formLayout", 4, label, {0, 0}, "Output file"},
    {"outputEdit", "QLineEdit", "page", "formLayout", 5, label, {400, 0}, ""},
    {"browseOutputButton", "QPushButton", "page", "formLayout", 5, field, {0, 0}, "Browse"},
    {"multiTTFiles",
     "QCheckBox",
     "widget_2",
     "horizontalLayout_2",
     0,
     noRole,
     {0, 0},
     "Multiple traveltimes files"},

    {"widget", "QWidget", "page_2", "verticalLayout_2", 0, noRole, {0, 0}, nullptr},
    {"label_4", "QLabel", "widget", "formLayout_3", 0, label, {0, 0}, "Input file"},
    {"inputSeismicEdit", "QLineEdit", "widget", "formLayout_3", 2, label, {400, 0}, ""},
    {"pushButton", "QPushButton", "widget", "formLayout_3", 2, field, {0, 0}, "Browse"},
    {"formatSeismicInput", "QLabel", "widget", "formLayout_3", 3, label, {0, 0}, "Format"},

    {"convertButton",
     "QPushButton",
     "Convert2VelarixDialog",
     "horizontalLayout",
     0,
     noRole,
     {0, 0},
     "Convert"},
    {"quitButton",
     "QPushButton",
     "Convert2VelarixDialog",
     "horizontalLayout",
     1,
     noRole,
     {0, 0},
     "Quit"},
};

struct Page
{
    const char *name;
    const char *title;
    QSize minimumSize;
};

inline const Page pages[] = {
    {"page_3", "From generic textual traveltimes", {0, 0}},
    {"page", "From structured traveltime", {500, 190}},
    {"page_2", "From seismic file", {0, 0}},
};
