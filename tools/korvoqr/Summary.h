#ifndef KORVOQR_SUMMARY_H
#define KORVOQR_SUMMARY_H

#include "Commands.h"
#include "Tally.h"
#include "Terminal.h"

#include <chrono>
#include <string>

namespace korvoqr {

/// The summary of a run: the numbers, the rate, and the codes from the most frequent to the rarest, each with
/// its share of the rejected payloads and a bar. Ends with a line feed.
std::string summaryText(const Tally& tally, std::chrono::duration<double> time, const Style& style);

/// The same as a JSON object on one line, with the kinds of faults, and with the first example of each
/// number.
std::string summaryJSON(const Tally& tally, std::chrono::duration<double> time);

}  // namespace korvoqr

#endif
