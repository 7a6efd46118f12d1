#pragma once

#include <functional>
#include <map>
#include <optional>
#include <vector>

#include <QHash>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QPointer>
#include <QStringList>

#include "core/app/application.h"
#include "core/keys/page_canvas.h"

class QAction;
class QLabel;
class QMdiArea;
class QMenu;
class QPagedPaintDevice;
class QProgressBar;
class QToolBar;

namespace tesselo {

class mainform;
class properties;
class Remote;
struct KeyDragData;

// The frame: menus, Toolbar1, the status line, and every document and page
// window in its MDI area. Its commands call core; what they may do is decided
// there.
class MDIForm1 : public QMainWindow, public ApplicationListener {
    Q_OBJECT
public:
    explicit MDIForm1(Application& app, QWidget* parent = nullptr);
    ~MDIForm1() override;

    Application& app() { return app_; }

    // A menu entry or divider by its name ("muNew", "muFilebar1", ...).
    QAction* entry(const QString& name) const { return entries_.value(name); }
    QMenu* menu(const QString& name) const { return menus_.value(name); }
    // A toolbar button by its key ("new", "open", ...).
    QAction* button(const QString& key) const { return buttons_.value(key); }
    QToolBar* toolbar() const { return Toolbar1; }
    QMdiArea* area() const { return area_; }

    // Runs a toolbar button as a click on it does.
    void Toolbar1_ButtonClick(const QString& key);
    // Recomputes which entries and buttons are enabled.
    void update_commands();

    mainform* document_window(int document) const;
    std::vector<Remote*> page_windows(int slot = -1) const;
    Remote* page_window(int slot, const QString& caption) const;
    // Opens the page with that node key of a document as a double click on
    // its node does, or brings its window forward. Null when refused.
    Remote* open_page(int document, const QString& node_key);
    void close_pages(int slot);
    properties* properties_window() const { return properties_; }
    // The properties window, made the first time it is needed.
    properties* ensure_properties();

    // The status line and the progress bar, as the Ui port drives them.
    void set_status(const QString& text);
    void set_progress(int value, int maximum);

    // The frame's windows as the Window menu arranges them.
    enum class Arrangement { cascade, tile_horizontally, tile_vertically };
    void arrange(Arrangement how);

    // The popup of the selected key (cPopup2), built from what the key allows.
    QMenu* build_key_menu();
    // A drop of a dragged key on picture `index` of a page window.
    void key_dropped(Remote* window, int index, const KeyDragData& source);

    // File > Print Overview...: the print dialog (a printer, or a PDF file),
    // then the overview of the active document.
    void muPrintOverview_Click();
    // Draws the active document's overview on a printer or PDF writer that
    // is set up already. False when nothing was drawn.
    bool print_overview(QPagedPaintDevice& device);

    // Hands over files given to a second start of the program.
    void open_files(const QStringList& paths);
    // Brings the frame to the front.
    void raise_frame();

    // ApplicationListener
    void document_opened(int document) override;
    void document_retitled(int document) override;
    void document_views_hidden(int document) override;
    void document_views_restored(int document) override;
    void document_closed(int slot) override;
    void active_document_changed() override;
    void tree_changed(int slot) override;
    void selection_changed(int slot) override;
    void page_window_opened(int slot, const std::string& caption) override;
    void page_window_closed(int slot, const std::string& caption) override;
    void page_window_changed(int slot, const std::string& caption) override;
    void edit_states_changed() override;
    void properties_requested() override;
    void label_requested() override;
    void page_key_changed(int slot, const std::string& caption, int picture) override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void build_menus();
    void build_toolbar();
    void register_commands();
    void run(const QString& command);
    bool command_enabled(const QString& command) const;
    bool button_enabled(const QString& key) const;
    // Cut, Copy, Paste and Delete while a key is selected: what the key allows.
    std::optional<bool> edit_command_of_key(const QString& command) const;
    void set_all_expanded(bool expanded);
    int document_index(const mainform* window) const;
    void subwindow_activated(QMdiSubWindow* window);
    void show_key_status(Remote* window, int index);
    void key_selected(Remote* window, int index);
    void key_menu_requested(Remote* window, int index, const QPoint& global);
    // The hidden key menu mukeyedit: its entries run and follow the Edit menu's.
    void connect_key_entries();
    void update_key_entries();
    // After a key gesture: the properties window and the Edit commands follow.
    void key_gesture_done();
    // Add IR Code for the key at picture `index` of a page window.
    void add_ir_code(Remote* window, int index);
    void page_window_closed_by_user(Remote* page);
    // Sizes the frame from its screen: room for a document and page windows.
    void size_from_screen();
    // Puts a new window of the workspace in a free spot, and scrolls to it.
    void place_new_window(QMdiSubWindow* sub);
    // The active document's slot and its tree's selected node (0 for none).
    std::pair<int, int> selected_node() const;
    void muAbout_Click();

    Application& app_;
    QMdiArea* area_;
    QToolBar* Toolbar1;
    QLabel* status_text_;
    QProgressBar* progress_;
    QHash<QString, QAction*> entries_;
    QHash<QString, QMenu*> menus_;
    QHash<QString, QAction*> buttons_;
    properties* properties_ = nullptr;
    std::map<QString, std::function<void()>> commands_;
    std::vector<mainform*> windows_;  // in the order of app.documents()
    bool syncing_ = false;
    // The windows hidden for a close question, to come back if the close is refused.
    std::vector<QPointer<QWidget>> hidden_views_;
    // The first window opened by the command that runs, to be scrolled into view.
    QPointer<QMdiSubWindow> scroll_target_;
};

// The frame command a toolbar key stands for ("open" is "muOpen", ...).
QString toolbar_command(const QString& key);

}  // namespace tesselo
