#include "core/link/upload.h"

#include <algorithm>
#include <memory>

#include "core/app/application.h"
#include "core/document/clock.h"
#include "core/document/lifecycle.h"
#include "core/document/ui.h"
#include "core/image/byte_reader.h"
#include "core/image/image_reader.h"
#include "core/ir/rebuild_ir_formats.h"
#include "core/link/exchange_opening.h"
#include "core/link/link_guard.h"
#include "core/link/upload_blocks.h"

namespace tesselo {

namespace {

// At every end of an upload: the link closed, the pointer at the default,
// the Download window unloaded, the flag cleared and the commands enabled.
class UploadEnd {
public:
    explicit UploadEnd(Application& app) : app_(app) {}
    ~UploadEnd() { finish(); }
    // Once, at the first call: a finished upload gives the commands back
    // before its closing pause.
    void finish()
    {
        if (finished_) return;
        finished_ = true;
        app_.link().close_usb();
        wait_.reset();
        app_.ui().download_window_unload();
        app_.flags().upload_in_progress = false;
        app_.ui().upload_commands_enabled(true);
    }
    UploadEnd(const UploadEnd&) = delete;
    UploadEnd& operator=(const UploadEnd&) = delete;
    void show_hourglass() { wait_ = std::make_unique<WaitCursor>(app_.ui()); }

private:
    Application& app_;
    std::unique_ptr<WaitCursor> wait_;
    bool finished_ = false;
};

int slots_taken(const Application& app)
{
    return static_cast<int>(std::count(app.slot_in_use.begin(), app.slot_in_use.end(), 1));
}

}  // namespace

bool muUpload_Click(Application& app)
{
    Ui& ui = app.ui();
    if (slots_taken(app) >= document_slots) {
        ui.message(title_files, "Exceed files open", Icon::exclamation);
        return false;
    }
    if (app.flags().upload_in_progress) return false;
    app.flags().upload_in_progress = true;
    UploadEnd end(app);
    ui.upload_commands_enabled(false);
    // An upload shows only the animation, not the progress bar.
    ui.download_window_show(upload_caption, false);
    app.write_log("upload(start)  ");

    switch (wake_remote(app.link(), upload_times)) {
    case Opening::ok: break;
    case Opening::no_device: ui.message(title_main, text_no_usb_device, Icon::none); return false;
    case Opening::wake_up_failed: show_link_failure(ui, with_common_tail(text_upload_failed_001)); return false;
    default: return false;
    }

    // The new document opens before any data has come; a later failure leaves it open and blank.
    if (muNew(app) < 0) return false;
    ui.download_window_hide();
    end.show_hourglass();

    UploadedImage uploaded;
    if (!upload_blocks(app, uploaded)) return false;
    app.link().close_usb();

    app.write_log("Upload from QM4100/QM5100");
    const Document* document = app.active();
    const int slot = document ? document->slot : 0;
    // A remote with nothing to give leaves the new document blank.
    if (uploaded.total > 0) {
        std::vector<std::uint8_t> image(uploaded.image.begin(),
                                        uploaded.image.begin() + static_cast<std::ptrdiff_t>(uploaded.total));
        try {
            datatoarray(app, image, slot);
        } catch (const ImageBoundsError&) {
            // What came is no image: the document stays as it was, blank.
            ui.message(title_files, "file is corrupted", Icon::exclamation);
            return false;
        }
        rebuild_ir_formats(app, slot);
    }
    ui.repaint();
    ui.message(title_main, text_upload_finished, Icon::none);
    end.finish();
    TIMEDELAY(app.clock(), 500);
    return true;
}

}  // namespace tesselo
