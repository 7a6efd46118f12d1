#pragma once

#include <QWidget>

#include "core/keys/ir_step_names.h"
#include "core/keys/properties_content.h"

class QLabel;
class QStackedWidget;
class QTabBar;

namespace tesselo {

class Application;
class ActionFrame;
class DeviceFrame;
class LabelFrame;

// The properties window, one for the application: what the selection of the
// tree and of the page canvas holds. A page shows the frame noproperties; a
// device (or HOME) "Device properties" and its Label on TabStrip1; a soft key
// its Action and Label on TabStrip1, a hard key on TabStrip2; the Label
// command on a device the Label alone on TabStrip3.
class properties : public QWidget {
    Q_OBJECT
public:
    properties(Application& app, QWidget* parent = nullptr);
    // Shows the selection that core holds, as Properties... shows it.
    void refresh();
    // The selection moved: the ordinary view of it.
    void selection_moved();
    // labelproperties: the Label tab forward (the Label alone for a device).
    void show_label();

    const PropertiesContent& content() const { return content_; }
    QTabBar* tab_strip() const;
    ActionFrame* action_frame() const { return action_; }
    LabelFrame* label_frame() const { return label_; }
    DeviceFrame* device_frame() const { return device_; }

Q_SIGNALS:
    // A key's or a device's data changed here: the frame updates its commands.
    void data_changed();

private:
    void show_tab(int tab);
    void tab_chosen(int tab);

    Application& app_;
    LibraryStepNames names_;
    PropertiesContent content_;
    bool label_alone_ = false;
    QLabel* heading_;
    QStackedWidget* pages_;
    QWidget* noproperties;
    QTabBar* TabStrip1;
    QTabBar* TabStrip2;
    QTabBar* TabStrip3;
    QStackedWidget* frames_;
    ActionFrame* action_;
    LabelFrame* label_;
    DeviceFrame* device_;
};

}  // namespace tesselo
