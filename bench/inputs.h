// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

// Input files of any size to measure with: a line over a two-layer ground, picks and records with
// some noise. The same arguments give the same bytes at every run. Names are overwritten.

/// Where the receivers of the shots stand.
enum class Layouts {
    Shared,                  ///< all shots on one layout
    Rolling,                 ///< the line moves on after every 100 shots
    DifferentInLastReceiver, ///< no two shots on the same, and only the last receiver tells it
};

void writeSeisImager(const std::string &path, int shots, int receivers, Layouts layouts);

/// One layout for all shots, which is all that the format holds.
void writeGeogiga(const std::string &path, int shots, int receivers);

/// With empty lines of times, as the reader wants them.
void writeWinsism(const std::string &path, int shots, int receivers);

/// A rolling line: files shot1.txt, shot2.txt, ... in `folder`, which must exist, and their list
/// shots.txt.
void writeGeneric(const std::string &folder, int shots, int receivers);

void writeSeismicUnix(const std::string &path, int traces, int samples);

/// The headers `base`.ADT, .CDT and .RDT and a file for each of their channels (99 at most).
void writeDolang(const std::string &base, int channels, int samples);
