#include "core/ir/rc56_edit.h"

#include <cctype>
#include <cstdlib>

#include "core/document/ui.h"
#include "core/ir/rc_formats.h"

namespace tesselo {

namespace {

const std::string customer_message = "Please enter (0 - 127)/(32768 - 65535)";

struct Range {
    long low, high;
    const char* message;
};

}  // namespace

const std::string& rc_protocol_name(int protocol)
{
    static const std::array<std::string, 4> names{"RC5", "RC5X", "RC6", "RC6A"};
    return names[static_cast<std::size_t>(protocol & 3)];
}

void RC56Edit::choose_protocol(int index)
{
    if (index >= rc_protocol_rc5 && index <= rc_protocol_rc6a) protocol_ = index;
}

bool RC56Edit::enabled(RcField field) const
{
    switch (field) {
    case RcField::Text1:
    case RcField::Text3: return true;
    case RcField::Text4: return protocol_ == rc_protocol_rc5x;
    case RcField::Text2: return protocol_ == rc_protocol_rc6a;
    }
    return false;
}

std::string RC56Edit::range_label(RcField field) const
{
    const bool rc5 = protocol_ == rc_protocol_rc5 || protocol_ == rc_protocol_rc5x;
    if (field == RcField::Text3) return rc5 ? "(0-31)" : "(0-255)";
    if (field == RcField::Text1) return rc5 ? "(0-127)" : "(0-255)";
    return {};
}

std::string& RC56Edit::text(RcField field)
{
    switch (field) {
    case RcField::Text1: return Text1;
    case RcField::Text2: return Text2;
    case RcField::Text3: return Text3;
    case RcField::Text4: break;
    }
    return Text4;
}

// A field's number; nothing when the text is not a whole number.
std::optional<long> RC56Edit::value(RcField field)
{
    const std::string& t = text(field);
    std::size_t i = 0;
    while (i < t.size() && std::isspace(static_cast<unsigned char>(t[i]))) ++i;
    std::size_t end = t.size();
    while (end > i && std::isspace(static_cast<unsigned char>(t[end - 1]))) --end;
    if (i == end || end - i > 9) return std::nullopt;
    const bool negative = t[i] == '-';
    if (negative || t[i] == '+') ++i;
    if (i == end) return std::nullopt;
    long v = 0;
    for (; i < end; ++i) {
        if (!std::isdigit(static_cast<unsigned char>(t[i]))) return std::nullopt;
        v = v * 10 + (t[i] - '0');
    }
    return negative ? -v : v;
}

bool RC56Edit::leave_field(RcField field)
{
    if (!enabled(field)) return true;
    const auto v = value(field);
    if (field == RcField::Text2) {
        if (v && *v >= 0 && !rc6a_customer_refused(*v)) return true;
        ui_.message(title_alt, customer_message, Icon::exclamation);
        return false;
    }
    const bool rc5 = protocol_ == rc_protocol_rc5 || protocol_ == rc_protocol_rc5x;
    Range range{0, 255, "Please enter 0 - 255"};
    if (field == RcField::Text1 && protocol_ == rc_protocol_rc5) range = {0, 127, "Please enter 0 - 127"};
    if (field == RcField::Text1 && protocol_ == rc_protocol_rc5x) range = {0, 127, "Please enter 0 -127"};
    if (field == RcField::Text3 && rc5) range = {0, 31, "Please enter 0 - 31"};
    if (field == RcField::Text4) range = {0, 63, "Please enter 0 - 63"};
    if (v && *v >= range.low && *v <= range.high) return true;
    ui_.message(title_alt, range.message, Icon::exclamation);
    return false;
}

bool RC56Edit::ok()
{
    if (protocol_ == rc_protocol_rc6a) {
        const auto u = value(RcField::Text2);
        if (!u || *u < 0 || rc6a_customer_refused(*u)) {
            ui_.message(title_alt, customer_message, Icon::exclamation);
            return false;
        }
    }
    // OK takes the focus from the field the user is in, so each field is
    // checked as on leaving it.
    for (const auto field : {RcField::Text3, RcField::Text1, RcField::Text4, RcField::Text2})
        if (!leave_field(field)) return false;

    const int system = static_cast<int>(*value(RcField::Text3));
    const int command = static_cast<int>(*value(RcField::Text1));
    IrFormatRecord format{};
    IrCodeWords words = code_.ir_code_words;
    int count = 0;
    std::string caption = rc_protocol_name(protocol_) + " ";
    switch (protocol_) {
    case rc_protocol_rc5:
        default_IR5Type(format);
        count = encode_rc5(words, system, command);
        code_.format_id = format_id_rc5;
        caption += std::to_string(system) + " " + std::to_string(command);
        break;
    case rc_protocol_rc5x: {
        const int data = static_cast<int>(*value(RcField::Text4));
        default_IR5XType(format);
        count = encode_rc5x(words, system, command, data);
        code_.format_id = format_id_rc5x;
        caption += std::to_string(system) + " " + std::to_string(command) + " " + std::to_string(data);
        break;
    }
    case rc_protocol_rc6:
        default_IR60Type(format);
        count = encode_rc6(words, system, command);
        code_.format_id = format_id_rc6;
        caption += std::to_string(system) + " " + std::to_string(command);
        break;
    default: {
        const long customer = *value(RcField::Text2);
        default_IR6AType(format);
        count = encode_rc6a(words, customer, system, command);
        code_.current_customer_code = customer;
        code_.format_id = format_id_rc6a;
        caption += std::to_string(customer) + " " + std::to_string(system) + " " + std::to_string(command);
        break;
    }
    }
    code_.set_code(format, words, count, 13);
    code_.current_ir_type = static_cast<std::uint8_t>(ir_type_rc5 + protocol_);
    code_.library_code = 0;
    code_.library_label.clear();
    code_.library_key = -1;
    code_.name = caption;
    return true;
}

bool RC56Edit::load_code(const IrCodeWords& words, int count)
{
    RcFields f;
    if (Get_RC5_Code(words, count, f)) protocol_ = rc_protocol_rc5;
    else if (Get_RC5x_Code(words, count, f)) protocol_ = rc_protocol_rc5x;
    else if (Get_RC6_m0_Code(words, count, f)) protocol_ = rc_protocol_rc6;
    else if (Get_RC6_mA_Code(words, count, f)) protocol_ = rc_protocol_rc6a;
    else return false;
    Text3 = std::to_string(f.system);
    Text1 = std::to_string(f.command);
    Text4 = protocol_ == rc_protocol_rc5x ? std::to_string(f.data) : std::string{};
    Text2 = protocol_ == rc_protocol_rc6a ? std::to_string(f.customer) : std::string{};
    return true;
}

}  // namespace tesselo
