#include "core/model/label_pool.h"

#include "core/model/configuration.h"

namespace tesselo {

int search_softkeyno(const Configuration& config)
{
    for (int i = 0; i < softkey_label_rows; ++i)
        if (config.softkey_labels[static_cast<std::size_t>(i)].is_free()) return i;
    return softkey_label_rows;
}

}  // namespace tesselo
