#include "core/ir/rebuild_ir_formats.h"

#include <algorithm>

#include "core/app/application.h"
#include "core/ir/ir_library.h"
#include "core/ir/ir_library_layout.h"
#include "core/ir/rc_formats.h"

namespace tesselo {

void rebuild_ir_formats(Application& app, int slot)
{
    Configuration& config = app.config(slot);
    const int count = std::clamp<int>(config.ir_formats.format_count, 0, ir_format_rows);
    const auto path = ir_library_path(app.home());
    auto handle = CreateGetIR();
    // One record for all formats: a format the library does not have keeps
    // what the record held before.
    IrFormatRecord record{};
    for (int i = 0; i < count; ++i) {
        switch (config.ir_format_ids[static_cast<std::size_t>(i)]) {
        case format_id_rc5: default_IR5Type(record); break;
        case format_id_rc5x: default_IR5XType(record); break;
        case format_id_rc6: default_IR60Type(record); break;
        case format_id_rc6a: default_IR6AType(record); break;
        default: GetIRType(handle.get(), config.ir_format_ids[static_cast<std::size_t>(i)], record, path); break;
        }
        config.ir_formats.records[static_cast<std::size_t>(i)] = record;
    }
    DestroyGetIR(handle);
}

}  // namespace tesselo
