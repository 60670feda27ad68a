#pragma once

#include <string>
#include <string_view>

namespace vireon::protocol {

// Bytes that frame a command or reply, and the one-byte control answers inside a frame.
inline constexpr unsigned char kStx = 2;  // first byte of a frame
inline constexpr unsigned char kEtx = 3;  // last byte of a frame
inline constexpr unsigned char kEot = 4;  // first byte of a report that asks for the rest of an answer
inline constexpr unsigned char kEnq = 5;  // text byte 1 of a refusal
inline constexpr unsigned char kAck = 6;  // text byte 1 of an acknowledge

// Queries and fixed strings.
inline constexpr std::string_view kQueryIdentity = "SID??;SIM??";
inline constexpr std::string_view kQueryModel = "SIM??";
inline constexpr std::string_view kQueryFunction = "DFN??";
inline constexpr std::string_view kQueryParameters = "DPS??";
inline constexpr std::string_view kQueryScope = "VDA??;VDB??;VPA??;VPB??;HDV??;HPO??;TRG??;DFN??;STS??";
inline constexpr std::string_view kQueryFunctionText = "AFN??";
inline constexpr std::string_view kPollWaveform = "DRS??";
inline constexpr std::string_view kPollReading = "DRM??";
inline constexpr std::string_view kPollReadingAndResults = "DRM??;DRP??";
inline constexpr std::string_view kPollRecord = "DRT??";
inline constexpr std::string_view kAlsoStatus = ";STS??";
inline constexpr std::string_view kGoToLocal = "GTL";

// The model without a scope, and the prefix that all models share.
inline constexpr std::string_view kMeterModel = "K7900";
inline constexpr std::string_view kModelPrefix = "K7";

// A number as a command's argument: upper-case hexadecimal, one digit padded with a leading "0";
// `value` is not negative, from 256 on the text is longer than two digits.
std::string hexArgument(int value);

// Selects the scope with the meter function at that list position and queries all of its settings.
std::string selectScopeFunction(int listIndex);

// "VDA" or "VDB", "VPA" or "VPB": the mnemonic of a channel, 0 for A and 1 for B.
std::string channelMnemonic(std::string_view stem, int channel);

}  // namespace vireon::protocol
