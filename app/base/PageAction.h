#pragma once

#include <QObject>
#include <QString>
#include <functional>

namespace orv {

/// One thing that can be done on a page or with one of its records: for buttons, menus, keys, the palette and the
/// shortcut sheet alike.
struct PageAction {
  Q_GADGET
  Q_PROPERTY(QString key MEMBER key)
  Q_PROPERTY(QString title MEMBER title)
  Q_PROPERTY(QString detail MEMBER detail)
  Q_PROPERTY(QString icon MEMBER icon)
  Q_PROPERTY(QString keys MEMBER keys)
  Q_PROPERTY(bool possible MEMBER possible)
  Q_PROPERTY(bool danger MEMBER danger)

 public:
  /// Its name within the page; the same between starts, for the palette remembers it.
  QString key;
  QString title;
  /// A second line in menus, where the title needs one.
  QString detail{};
  QString icon{};
  /// As shown, "Ctrl+D". Those of a page's own actions work while it is open; "N" makes what the page is a list of.
  QString keys{};
  /// What the palette calls it where the title says too little: "Pause Fleet maintenance, Benelux".
  QString inPalette{};
  /// Needs a role that may change things.
  bool writes = false;
  /// It destroys; menus set it apart.
  bool danger = false;
  /// It can be done just now.
  bool possible = true;
  /// Told to who asks for it by key although it is not possible; empty to say nothing.
  QString whyNot{};
  /// In the page's menu; false where a button of the page stands for it.
  bool inMenu = true;
  /// Makes sense while another page is open: the palette then opens this one first. What is done with a record it then
  /// does without, where it would otherwise open the page that has the record's forms.
  bool anywhere = false;
  std::function<void()> run{};
};

/// Something that the palette finds by its name, and opens.
struct FoundRecord {
  QString id;
  QString name;
  QString detail;
};

/// Where in a page the person is: what Back returns to beside the page and its record.
struct PagePlace {
  QString tab{};
  /// A search, a filter: whatever the page finds its way back by.
  QString value{};
  /// The value was chosen at once and not typed letter by letter: a step of its own, however soon after the last.
  bool chosen = false;
  bool operator==(const PagePlace& other) const { return tab == other.tab && value == other.value; }
};

}  // namespace orv
