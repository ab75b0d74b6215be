#include <QQmlEngine>
#include <QQuickWindow>

#include "app/base/PagedRows.h"
#include "app/campaigns/LeadRows.h"
#include "bench/Frame.h"
#include "bench/Report.h"
#include "desktop/ClientWindow.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

const char tableSource[] = R"(
import QtQuick
import Orvella.Design
Window {
  id: root
  property alias model: table.model
  width: 1048; height: 660
  function show(key) { table.show(key); }
  OrvTable {
    id: table
    anchors.fill: parent
    title: "Leads"
    columns: [
      OrvColumn { id: nameCells; key: "name"; title: "Lead"; fill: true },
      OrvColumn { id: companyCells; key: "company"; title: "Company"; preferredWidth: 200 },
      OrvColumn { id: statusCells; key: "status"; title: "Status"; preferredWidth: 116 }
    ]
    delegate: OrvTableRow {
      id: row
      required property string name
      required property string detail
      required property string company
      required property string statusLabel
      OrvTwoLineCell { column: nameCells; title: row.name; detail: row.detail }
      OrvTextCell { column: companyCells; text: row.company }
      OrvTextCell { column: statusCells; text: row.statusLabel }
    }
  }
})";

std::vector<LeadRow> people(int from, int count) {
  std::vector<LeadRow> leads;
  for (int number = from; number < from + count; ++number) {
    CampaignLead lead;
    lead.id = u"l%1"_s.arg(number);
    lead.email = u"person%1@company%2.example"_s.arg(number).arg(number % 977);
    lead.firstName = u"First%1"_s.arg(number % 313);
    lead.lastName = u"Last%1"_s.arg(number % 1931);
    lead.company = u"Company %1"_s.arg(number % 977);
    lead.status = LeadStatus(u"active"_s);
    leads.emplace_back(lead);
  }
  return leads;
}

struct Figures {
  double search = 0;
  double jump = 0;
  double page = 0;
};

std::vector<LeadRow> matching(const PagedRows<LeadRow>& all, const QString& needle) {
  std::vector<LeadRow> rows;
  rows.reserve(size_t(all.size()));
  all.each([&](const LeadRow& row) {
    if (row.prepared().holds(needle)) rows.push_back(row);
  });
  return rows;
}

Figures measure(QQuickWindow& window, int count, Scale scale) {
  PagedRows<LeadRow> index;
  for (int from = 0; from < count; from += 200)
    index.take(index.pages(), people(from, std::min(200, count - from)), QString::number(from), false);
  LeadRowsModel rows;
  rows.replace(matching(index, {}));
  window.setProperty("model", QVariant::fromValue<QObject*>(&rows));
  frame(window);
  Times search, jump, page;
  // Each step of a word that few hold in the end.
  const QString word = u"company97"_s;
  for (int round = 0; round < scale.of(200); ++round) {
    const QString typed = word.left(round % (word.size() + 1));
    search.ms.push_back(milliseconds([&] {
      rows.replace(matching(index, typed));
      frame(window);
    }));
  }
  rows.replace(matching(index, {}));
  frame(window);
  for (int round = 0; round < scale.of(200); ++round) {
    const QString key = u"l%1"_s.arg(qint64(round) * 7919 % count);
    jump.ms.push_back(milliseconds([&] {
      QMetaObject::invokeMethod(&window, "show", Q_ARG(QVariant, key));
      frame(window);
    }));
  }
  for (int round = 0; round < scale.of(100); ++round) {
    const auto more = people(count + round * 200, 200);
    page.ms.push_back(milliseconds([&] {
      rows.append(index.take(index.pages(), more, QString::number(count + round), false).rows);
      frame(window);
    }));
  }
  window.setProperty("model", QVariant::fromValue<QObject*>(nullptr));
  return {search.at(0.95), jump.at(0.95), page.at(0.95)};
}

}  // namespace

bool leads(Scale scale) {
  const int many = scale.of(100'000);
  std::printf("%d enrolled leads in their table, 1048 x 660\n", many);
  QQmlEngine engine;
  ClientWindow::prepare(engine);
  const auto window = windowOf(engine, tableSource);
  if (!window) return false;
  const Figures few = measure(*window, 100, scale), all = measure(*window, many, scale);
  line("a keystroke in the search until its frame, 95th percentile", all.search, "ms", "under 32");
  line("baseline: the same in 100 leads", few.search, "ms");
  line("a jump to any row until its frame, 95th percentile", all.jump, "ms", "under 16");
  line("baseline: the same in 100 leads", few.jump, "ms");
  line("a page of 200 more until its frame, 95th percentile", all.page, "ms", "under 16");
  line("baseline: the same after 100 leads", few.page, "ms");
  return true;
}

}  // namespace orv::bench
