// Word lists that more than one option report block prints through.
#pragma once

#include <initializer_list>

#include <persona/framework/fields.h>
#include <persona/framework/types.h>

namespace persona {

// Active level of an output or input: 0 low, 1 high.
inline constexpr const char* kActiveLevelWords[] = {"Low", "High"};
// Power-up choices: 0 the state at power-down, 1 a fixed programmed state.
inline constexpr const char* kLastFixedWords[] = {"Last", "Fixed"};
// Power-up state of a switch: 0 as at power-down, 1 off, 2 on.
inline constexpr const char* kLastOffOnWords[] = {"Last", "Off", "On"};
// Polarity of a data line: 0 normal, 1 inverted.
inline constexpr const char* kPolarityWords[] = {"Normal", "Inverted"};
// Pattern of an external alarm output: 0 continuous, 1 pulsed, 2 the output's custom pattern.
inline constexpr const char* kAlarmPatternWords[] = {"Continuous", "Pulsed", "Custom"};
// Serial port settings, by code.
inline constexpr const char* kPortBaudWords[] = {"1200", "2400", "4800", "9600", "19200", "38400"};
inline constexpr const char* kPortParityWords[] = {"None", "Odd", "Even"};
inline constexpr const char* kPortStopBitWords[] = {"1", "2"};
inline constexpr const char* kPortCharBitWords[] = {"7", "8"};

// Port code defaults: 9600 baud, no parity, one stop bit, eight bits per character.
constexpr BYTE kPortBaud9600 = 3;
constexpr BYTE kPortEightBits = 1;

}  // namespace persona
