#pragma once

#include <array>
#include <cstdint>

namespace vireon::tests {

// One 64-byte input and one 64-byte output report, no identifiers.
inline constexpr auto kVendor64 = std::to_array<std::uint8_t>({
    0x06, 0x00, 0xFF,  // usage page: vendor defined
    0x09, 0x01,        // usage 1
    0xA1, 0x01,        // collection: application
    0x15, 0x00,        //   logical minimum 0
    0x26, 0xFF, 0x00,  //   logical maximum 255
    0x75, 0x08,        //   report size 8 bits
    0x95, 0x40,        //   report count 64
    0x09, 0x01,        //   usage 1
    0x81, 0x02,        //   input: data, variable, absolute
    0x95, 0x40,        //   report count 64
    0x09, 0x01,        //   usage 1
    0x91, 0x02,        //   output: data, variable, absolute
    0xC0,              // end collection
});

// Boot keyboard: input 8 bytes, output 5 bits of lamps and 3 of padding.
inline constexpr auto kKeyboard = std::to_array<std::uint8_t>({
    0x05, 0x01,  // usage page: generic desktop
    0x09, 0x06,  // usage: keyboard
    0xA1, 0x01,  // collection: application
    0x05, 0x07,  //   usage page: key codes
    0x19, 0xE0,  //   usage minimum: left control
    0x29, 0xE7,  //   usage maximum: right GUI
    0x15, 0x00,  //   logical minimum 0
    0x25, 0x01,  //   logical maximum 1
    0x75, 0x01,  //   report size 1 bit
    0x95, 0x08,  //   report count 8
    0x81, 0x02,  //   input: modifier byte
    0x95, 0x01,  //   report count 1
    0x75, 0x08,  //   report size 8 bits
    0x81, 0x01,  //   input: constant, the reserved byte
    0x95, 0x05,  //   report count 5
    0x75, 0x01,  //   report size 1 bit
    0x05, 0x08,  //   usage page: lamps
    0x19, 0x01,  //   usage minimum: num lock
    0x29, 0x05,  //   usage maximum: kana
    0x91, 0x02,  //   output: lamps
    0x95, 0x01,  //   report count 1
    0x75, 0x03,  //   report size 3 bits
    0x91, 0x01,  //   output: constant, padding
    0x95, 0x06,  //   report count 6
    0x75, 0x08,  //   report size 8 bits
    0x15, 0x00,  //   logical minimum 0
    0x25, 0x65,  //   logical maximum 101
    0x05, 0x07,  //   usage page: key codes
    0x19, 0x00,  //   usage minimum 0
    0x29, 0x65,  //   usage maximum 101
    0x81, 0x00,  //   input: array of 6 keys
    0xC0,        // end collection
});

// Boot mouse: input 3 buttons, 5 bits of padding, X and Y; no output.
inline constexpr auto kMouse = std::to_array<std::uint8_t>({
    0x05, 0x01,  // usage page: generic desktop
    0x09, 0x02,  // usage: mouse
    0xA1, 0x01,  // collection: application
    0x09, 0x01,  //   usage: pointer
    0xA1, 0x00,  //   collection: physical
    0x05, 0x09,  //     usage page: buttons
    0x19, 0x01,  //     usage minimum 1
    0x29, 0x03,  //     usage maximum 3
    0x15, 0x00,  //     logical minimum 0
    0x25, 0x01,  //     logical maximum 1
    0x95, 0x03,  //     report count 3
    0x75, 0x01,  //     report size 1 bit
    0x81, 0x02,  //     input: buttons
    0x95, 0x01,  //     report count 1
    0x75, 0x05,  //     report size 5 bits
    0x81, 0x01,  //     input: constant, padding
    0x05, 0x01,  //     usage page: generic desktop
    0x09, 0x30,  //     usage: X
    0x09, 0x31,  //     usage: Y
    0x15, 0x81,  //     logical minimum -127
    0x25, 0x7F,  //     logical maximum 127
    0x75, 0x08,  //     report size 8 bits
    0x95, 0x02,  //     report count 2
    0x81, 0x06,  //     input: data, variable, relative
    0xC0,        //   end collection
    0xC0,        // end collection
});

// Input report 1 of 3 bytes and 2 of 8 bytes, in two pieces each; output report 3 of 5 bytes.
inline constexpr auto kNumbered = std::to_array<std::uint8_t>({
    0x06, 0x00, 0xFF,  // usage page: vendor defined
    0xA1, 0x01,        // collection: application
    0x75, 0x08,        //   report size 8 bits
    0x85, 0x01,        //   report identifier 1
    0x95, 0x01,        //   report count 1
    0x81, 0x02,        //   input
    0x85, 0x02,        //   report identifier 2
    0x95, 0x05,        //   report count 5
    0x81, 0x02,        //   input
    0x85, 0x01,        //   report identifier 1
    0x95, 0x02,        //   report count 2
    0x81, 0x02,        //   input
    0x85, 0x02,        //   report identifier 2
    0x95, 0x03,        //   report count 3
    0x81, 0x02,        //   input
    0x85, 0x03,        //   report identifier 3
    0x95, 0x05,        //   report count 5
    0x91, 0x02,        //   output
    0xC0,              // end collection
});

}  // namespace vireon::tests
