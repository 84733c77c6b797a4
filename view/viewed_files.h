// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/finding.h"
#include "field/picks.h"
#include "field/request.h"
#include "view/record_data.h"

#include <memory>
#include <string>
#include <vector>

/// A record as it was read, with what its checks found.
struct ViewedRecord
{
    std::shared_ptr<const RecordData> data = {};
    std::vector<Finding> findings = {};
};

/// What is looked at: all picks as one survey, and records.
struct ViewedFiles
{
    std::vector<std::string> pickPaths = {}; ///< of the files of picks
    PickSurvey picks = {};
    std::vector<Finding> findings = {}; ///< in the picks
    std::vector<ViewedRecord> records = {};
};

/// Reads the request's files after those that are there; a file of picks that cannot be read leaves
/// no trace, and of a record the traces before a damage stay. Appends what there is to say about
/// each file to `reports`. False when `goesOn` gave it up: `files` is as it was then.
bool readFiles(const Request &request, ViewedFiles &files, std::vector<Report> &reports,
               const GoesOn &goesOn);
