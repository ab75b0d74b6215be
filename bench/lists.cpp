#include <QObject>

#include "app/base/Changes.h"
#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "bench/Report.h"
#include "kit/models/mailboxes/mailbox.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

Mailbox mailbox(int number, qint64 version) {
  Mailbox box;
  box.id = u"mbx_%1"_s.arg(number, 12, 10, '0'_L1);
  box.number = number;
  box.address = u"first.last%1@outreach-%2.example.com"_s.arg(number).arg(number % 97);
  box.displayName = u"Zoë Lindqvist %1"_s.arg(number);
  box.provider = u"google"_s;
  box.role = u"sender"_s;
  box.status = MailboxStatus{u"active"_s};
  box.dailyCap = 30 + version % 10;
  box.tags = QList<QString>{u"dach"_s, u"q4"_s};
  box.version = version;
  return box;
}

QList<Mailbox> page(int count, qint64 version) {
  QList<Mailbox> boxes;
  for (int i = 0; i < count; ++i) boxes.append(mailbox(i, version));
  return boxes;
}

}  // namespace

/// As a table shows a mailbox.
struct BoxRow {
  QString id, address, name, status, cap, tags;
  bool operator==(const BoxRow&) const = default;
};
BOOST_DESCRIBE_STRUCT(BoxRow, (), (id, address, name, status, cap, tags))

}  // namespace orv::bench

namespace orv {
ORV_DECLARE_ROW(bench::BoxRow)
ORV_DEFINE_ROW(bench::BoxRow)
}  // namespace orv

namespace orv::bench {
namespace {

BoxRow rowOf(const Mailbox& box) {
  return {box.id,
          box.address,
          box.displayName,
          box.status.rawValue,
          QString::number(box.dailyCap),
          box.tags.value_or(QList<QString>()).join(u", "_s)};
}

std::vector<BoxRow> rowsOf(const QList<Mailbox>& boxes) {
  std::vector<BoxRow> rows;
  for (const Mailbox& box : boxes) rows.push_back(rowOf(box));
  return rows;
}

/// A page is read, then each of its records answers a bulk action. Two stores show them.
bool feed(Scale scale) {
  constexpr int count = 200;
  std::printf("The change feed with a page of %d mailboxes, two stores watching\n", count);
  Changes changes;
  QObject owner;
  RecordModel<BoxRow> first, second;
  first.update(rowsOf(page(count, 1)));
  second.update(rowsOf(page(count, 1)));
  for (auto* model : {&first, &second})
    changes.watch<Mailbox>(&owner, [model](const Change<Mailbox>& change) {
      if (change.record) model->put({rowOf(*change.record)});
    });
  QList<Mailbox> shown = page(count, 1);
  Times in, out, bare;
  const int rounds = scale.quick ? 1 : 101;
  for (int round = 0; round < rounds; ++round) {
    const qint64 version = 2 * round + 2;
    QList<Mailbox> read = page(count, version);
    const Stamp asked = changes.stamp();
    in.ms.push_back(milliseconds([&] { changes.reconcile<Mailbox>(read, &shown, asked); }));
    shown = read;
    const QList<Mailbox> acted = page(count, version + 1);
    const Stamp sent = changes.stamp();
    out.ms.push_back(milliseconds([&] {
      for (const Mailbox& box : acted) changes.publish(box, sent, true);
    }));
    if (first.records().back().cap != rowOf(acted.last()).cap) {
      std::printf("  What was published is not shown.\n");
      return false;
    }
    const QList<Mailbox> again = page(count, version);
    bare.ms.push_back(milliseconds([&] {
      for (auto* model : {&first, &second})
        for (const Mailbox& box : again) model->put({rowOf(box)});
    }));
  }
  std::printf("  medians of %d rounds\n", rounds);
  line("page read into the feed", in.median(), "ms");
  line("each of its records told, and shown by both", out.median(), "ms");
  line("in and out", in.median() + out.median(), "ms", "under 4");
  line("the rows put without a feed (baseline)", bare.median(), "ms");
  line("in and out / without a feed", (in.median() + out.median()) / bare.median(), "x");
  return true;
}

Times changedRow(int count, int rounds) {
  RecordModel<BoxRow> model;
  model.update(rowsOf(page(count, 1)));
  // The index by id is there from now on.
  model.rowOf(u"none"_s);
  Times times;
  for (int round = 0; round < rounds; ++round) {
    const BoxRow row = rowOf(mailbox(int(qint64(round) * 7919 % count), round + 2));
    times.ms.push_back(milliseconds([&] { model.put({row}); }));
  }
  return times;
}

bool rows(Scale scale) {
  const int many = scale.of(10'000), rounds = scale.quick ? 10 : 1001;
  std::printf("One changed record in %d rows\n", many);
  Times few = changedRow(100, rounds), all = changedRow(many, rounds);
  RecordModel<BoxRow> model;
  QList<Mailbox> boxes = page(many, 1);
  model.update(rowsOf(boxes));
  Times whole;
  const int wholeRounds = scale.quick ? 1 : 21;
  for (int round = 0; round < wholeRounds; ++round) {
    boxes[many / 2] = mailbox(many / 2, round + 2);
    auto fresh = rowsOf(boxes);
    whole.ms.push_back(milliseconds([&] { model.update(std::move(fresh)); }));
  }
  std::printf("  medians of %d and, for the whole list, %d rounds\n", rounds, wholeRounds);
  line("the row taken over", all.median() * 1000, "us");
  line("the same, 95th percentile", all.at(0.95) * 1000, "us");
  line("the same among 100 rows (baseline)", few.median() * 1000, "us");
  line("among all / among 100", all.median() / few.median(), "x", "about 1: no index is rebuilt");
  line("the whole list taken over again (baseline)", whole.median(), "ms");
  line("whole list / one row", whole.median() / all.median(), "x");
  return true;
}

}  // namespace

bool lists(Scale scale) { return feed(scale) && rows(scale); }

}  // namespace orv::bench
