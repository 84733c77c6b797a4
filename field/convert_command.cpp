// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/convert_command.h"

#include "console/messages.h"
#include "field/conversion.h"

namespace {

/// The format to write; nullptr when neither --to nor the output's extension says it.
const Format *targetOf(const Request &request)
{
    return request.to != nullptr ? request.to : formatWrittenTo(request.output);
}

/// What is wrong with the options for this target; empty when nothing is.
std::string wrongOptions(const Request &request, const Format *target)
{
    if (target == nullptr)
        return "the name " + request.output + " does not say the format to write: add --to FORMAT";
    const bool ofPicks = target->writePicks != nullptr;
    const std::string noOption = target->name + " takes no --";
    if (ofPicks ? request.byteOrder.has_value() : request.timesIn.has_value())
        return noOption + (ofPicks ? "byte-order" : "times-in");
    if (!ofPicks && !request.shotList.empty())
        return noOption + "shots";
    if (!ofPicks && !request.topography.empty())
        return noOption + "topography";
    if (target->name != "su" && request.byteOrder)
        return noOption + "byte-order";
    if (target->name != "su" && request.isInMillivolts)
        return noOption + "millivolts";
    return "";
}

} // namespace

int runConvert(const Request &request)
{
    const Format *const target = targetOf(request);
    const std::string reason = wrongOptions(request, target);
    if (!reason.empty())
        return refuseUsage(reason);
    return convertFiles(request, *target, [&](const Report &report, const std::string &output) {
        return conclude(report, request.isStrict, output);
    });
}
