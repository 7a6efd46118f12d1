#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace tesselo {

class Application;
class CurrentIrCode;
struct Configuration;

inline const std::string text_not_connected = "Device is not connected properly. Please check the connection.";
inline const std::string text_learn_ready = "Ready";
inline const std::string text_learn_ok = "LEARN OK";
inline const std::string text_learned_failed_003 = "Learned Failed(Error #003)! ";
inline const std::string text_learned_failed_004 = "Learned Failed(Error #004)! ";
inline const std::string text_learning_full = "Learning memory full";
inline const std::string text_learning_code = "LEARNING CODE";
inline const std::string text_test_failed_002 = "Download Failed(Error #002)! ";
inline const std::string text_test_failed_111 = "Download Failed(Error #111)! ";
inline const std::string text_test_failed_112 = "Download Failed(Error #112)! ";
inline const std::string text_test_failed_113 = "Download Failed(Error #113)! ";
inline const std::string text_sending_data = "sending data...";
inline const std::string text_send_completed = "send completed";

// The learn reply: tag, six frame bytes, the 64 learned bytes, a checksum.
inline constexpr std::size_t learn_reply_size = 73;

// The frame that makes the remote send the current code until Test IR is
// released: 73 bytes for a learned code (its 64 bytes), 137 for any other
// (the format's 64 bytes, then the data's 64).
std::vector<std::uint8_t> test_ir_frame(const CurrentIrCode& code);

// Learn IR: the remote captures a code from another remote control. `config`
// is the document of the key under work, whose learning memory must have a
// free slot. True when a code was learned: then it is the current code, of
// kind 5, named "LEARNING CODE". A learn that failed leaves the current code's
// data and kind as they were.
bool EditIR_LearnIR(Application& app, const Configuration& config);

// Test IR pressed: the remote starts sending the current code. `minimum` is
// the Duration frame's Minimum value in hundredths of a second, or -1 while
// Default is chosen. True when the remote is sending.
bool TestIR_Start(Application& app, std::uint8_t ir_type, int minimum);
// Test IR released: the remote stops sending.
bool TestIR_End(Application& app, int minimum);

}  // namespace tesselo
