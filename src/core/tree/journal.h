#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "core/model/configuration.h"

namespace tesselo {

class Application;

// The undo and redo journals: five whole-document snapshots each, shared by
// all documents in the order of the edits. The snapshots are allocated once;
// a snapshot copies the tables into them, and only the node key strings may
// need memory of their own.
class Journal {
public:
    static constexpr int depth = 5;
    struct Side {
        std::array<std::unique_ptr<Configuration>, depth> snapshot;
        std::array<std::int16_t, depth> document{};  // the slot whose snapshot lies there
        std::uint8_t count = 0;                       // undo_count or redo_count
    };

    Journal();
    Side undo;
    Side redo;
};

// Copies every table that a snapshot restores. The learned-key numbers and the
// header of the last image read or written stay those of the document.
void restore_document_tables(Configuration& to, const Configuration& from);

// Takes the snapshot for undo of the document about to change.
void record_undorecord(Application& app);
// The mirror image, for redo.
void record_redorecord(Application& app);
// What every journalled edit does before it changes anything: the snapshot,
// the redo journal emptied and Redo disabled.
void begin_edit(Application& app);

// Edit > Undo and Edit > Redo.
void muUndo_Click(Application& app);
void muRedo_Click(Application& app);

// A document that closes takes its snapshots out of both journals: the slot
// it leaves is taken by the next document, which its snapshots must never
// overwrite. The other documents' snapshots keep their order.
void forget_document(Application& app, int slot);

// Whether Undo and Redo can be chosen (the toolbar's buttons 6 and 7 and the
// menu entries): a snapshot is there and its document is open. With no
// document open both are greyed.
bool undo_enabled(Application& app);
bool redo_enabled(Application& app);

}  // namespace tesselo
