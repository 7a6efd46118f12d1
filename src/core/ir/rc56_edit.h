#pragma once

#include <array>
#include <optional>
#include <string>

#include "core/ir/current_code.h"

namespace tesselo {

class Ui;

// The fields of the protocol dialog, by control.
enum class RcField { Text1, Text2, Text3, Text4 };  // Command, Customer Code, System, Data

// The protocols of `Option1`, by index.
inline constexpr int rc_protocol_rc5 = 0;
inline constexpr int rc_protocol_rc5x = 1;
inline constexpr int rc_protocol_rc6 = 2;
inline constexpr int rc_protocol_rc6a = 3;

// "RC5", "RC5X", "RC6" or "RC6A" for an index of `Option1`.
const std::string& rc_protocol_name(int protocol);

// The logic of the RC56Edit dialog: a code typed by its protocol fields.
class RC56Edit {
public:
    RC56Edit(Ui& ui, CurrentIrCode& code) : ui_(ui), code_(code) {}

    // The field texts as the user typed them.
    std::string Text1, Text2, Text3, Text4;

    int protocol() const { return protocol_; }
    void choose_protocol(int index);
    // A field that the chosen protocol does not use is disabled.
    bool enabled(RcField field) const;
    // "(0-31)", "(0-127)" or "(0-255)" beside System and Command; nothing
    // beside the other fields.
    std::string range_label(RcField field) const;

    // Leaving a field: false, after the field's message, when its value is out
    // of range (the focus goes back to it).
    bool leave_field(RcField field);

    // OK: builds the code into the current code and closes (true), or says why
    // not and stays open (false).
    bool ok();

    // Fills the protocol and the fields from a stored code, so that its step
    // can be edited; false when the words are of none of the four protocols.
    bool load_code(const IrCodeWords& words, int count);

private:
    std::string& text(RcField field);
    std::optional<long> value(RcField field);

    Ui& ui_;
    CurrentIrCode& code_;
    int protocol_ = rc_protocol_rc5;
};

}  // namespace tesselo
