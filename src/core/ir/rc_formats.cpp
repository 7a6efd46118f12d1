#include "core/ir/rc_formats.h"

#include <initializer_list>

namespace tesselo {

namespace {

void set_row(IrFormatRecord& record, std::initializer_list<std::uint16_t> words)
{
    record.fill(0);
    std::size_t i = 0;
    for (const auto w : words) record[i++] = static_cast<std::int16_t>(w);
}

}  // namespace

void default_IR5Type(IrFormatRecord& record)
{
    set_row(record, {0x0A13, 0x0000, 0x1002, 0x0515, 0x0515, 0x0536, 0x0000, 0xA641});
}

void default_IR5XType(IrFormatRecord& record)
{
    set_row(record, {0x1613, 0x0010, 0x1004, 0x0515, 0x0515, 0x0545, 0x0000, 0x1882, 0x8ECE});
}

void default_IR60Type(IrFormatRecord& record)
{
    set_row(record, {0x0213, 0x6020, 0x1002, 0x0275, 0x0275, 0x02A2, 0x0000, 0x79B9, 0x149F, 0x0F41, 0x149F,
                     0x0F41});
}

void default_IR6AType(IrFormatRecord& record)
{
    set_row(record, {0x0213, 0x6000, 0x1002, 0x0275, 0x0275, 0x02A2, 0x0000, 0x993F, 0x19A0, 0x1481, 0x19A0,
                     0x1481});
}

}  // namespace tesselo
