#include <QAbstractListModel>
#include <QQuickItem>

#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/scenes/Stage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

bool list(Scale scale, QQmlEngine& engine) {
  const int count = scale.of(10000);
  std::printf("Filtering and sorting %d campaigns, in the window\n", count);
  Stage stage(engine, {.campaigns = count});
  if (!stage.isReady()) return false;
  CampaignsStore& store = stage.openCampaigns();
  if (store.rows()->count() < count) {
    std::printf("  Only %d campaigns were loaded.\n", store.rows()->count());
    return false;
  }
  Times keystroke, refilling, untilFrame, sort;
  for (int round = 0; round < (scale.quick ? 1 : 20); ++round) {
    for (const auto& text : {u"f"_s, u"fl"_s, u"fle"_s, u"flee"_s, u"fle"_s, u"fl"_s, u"f"_s, QString()}) {
      QElapsedTimer timer;
      timer.start();
      store.setQuery(text);
      keystroke.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
      // Most keystrokes of a search leave little on the screen; these are the dear ones.
      if (store.rows()->count() > count / 10) refilling.ms.push_back(keystroke.ms.back());
      frame(stage.window());
      untilFrame.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
  }
  for (const auto& key : {u"name"_s, u"replied"_s, u"status"_s, u"progress"_s})
    for (const bool down : {true, false}) sort.ms.push_back(milliseconds([&] { store.sort(key, down); }));
  line("filter keystroke, store, model and bindings, median", keystroke.median(), "ms", "under 8");
  line("the same, 95th percentile", keystroke.at(0.95), "ms");
  line("filter keystroke that fills the screen anew, median", refilling.median(), "ms", "under 8");
  line("filter keystroke until its frame is drawn, median", untilFrame.median(), "ms");
  line("sort, median", sort.median(), "ms");
  line("sort, slowest (names, collation keys made)", sort.at(1), "ms");
  return true;
}

class Numbers final : public QAbstractListModel {
 public:
  explicit Numbers(int count) : m_count(count) {}
  int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_count; }
  QHash<int, QByteArray> roleNames() const override { return {{Qt::UserRole, "id"}, {Qt::UserRole + 1, "name"}}; }
  QVariant data(const QModelIndex& index, int role) const override {
    if (role == Qt::UserRole) return QString::number(index.row());
    return QVariant(u"Lead number %1"_s.arg(index.row()));
  }

 private:
  int m_count;
};

const char tableSource[] = R"(
import QtQuick
import Orvella.Design
Window {
  id: root
  property var rows
  property alias table: table
  width: 1280; height: 800
  function scrollTo(y) { table.children[1].contentY = y; }
  OrvTable {
    id: table
    anchors.fill: parent
    title: "Leads"
    model: root.rows
    keyRole: "id"
    columns: [
      OrvColumn { id: first; key: "name"; title: "Name"; fill: true },
      OrvColumn { id: second; key: "a"; title: "Company"; preferredWidth: 160 },
      OrvColumn { id: third; key: "b"; title: "Email"; preferredWidth: 220 },
      OrvColumn { id: fourth; key: "c"; title: "Sent"; alignment: Text.AlignRight },
      OrvColumn { id: fifth; key: "d"; title: "Replied"; alignment: Text.AlignRight }
    ]
    delegate: OrvTableRow {
      id: row
      required property string name
      label: name
      OrvTwoLineCell { column: first; title: row.name; detail: "Head of operations" }
      OrvTextCell { column: second; text: row.name }
      OrvTextCell { column: third; text: row.key + "@example.com" }
      OrvTextCell { column: fourth; text: row.key }
      OrvTextCell { column: fifth; text: row.key }
    }
  }
})";

bool scroll(Scale scale, QQmlEngine& engine) {
  const int count = scale.of(100000);
  std::printf("Scrolling a table of %d rows\n", count);
  Numbers rows(count);
  const auto window = windowOf(engine, tableSource, {{u"rows"_s, QVariant::fromValue<QAbstractItemModel*>(&rows)}});
  if (!window) return false;
  frame(*window);
  Times frames;
  // A wheel's notch at a time, then leaps: rows are reused in both, and half a window of them is new in the second.
  double y = 0;
  for (int i = 0; i < scale.of(600); ++i) {
    y += i % 3 == 2 ? 416 : 120;
    QElapsedTimer timer;
    timer.start();
    QMetaObject::invokeMethod(window.get(), "scrollTo", Q_ARG(QVariant, y));
    frame(*window);
    frames.ms.push_back(double(timer.nsecsElapsed()) / 1e6);
  }
  line("frame, median", frames.median(), "ms");
  line("frame, 95th percentile", frames.at(0.95), "ms", "under 14");
  line("frame, slowest", frames.at(1), "ms");
  return true;
}

}  // namespace

bool window(Scale scale) {
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  return list(scale, engine) && scroll(scale, engine);
}

}  // namespace orv::bench
