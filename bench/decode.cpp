#include <simdjson.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "bench/Report.h"
#include "kit/api/JSONCoding.h"
#include "kit/models/mailboxes/mailboxPage.h"

using namespace Qt::Literals::StringLiterals;

namespace orv::bench {
namespace {

/// As the service writes it: keys in the record's order, what is absent left out.
QByteArray page(int count) {
  QByteArray json = R"({"items":[)";
  for (int i = 0; i < count; ++i) {
    const QByteArray number = QByteArray::number(i);
    json += (i ? "," : "") + QByteArray(R"({"id":"mbx_)") + number.rightJustified(12, '0') + R"(","number":)" + number +
            R"(,"address":"first.last)" + number + "@outreach-" + QByteArray::number(i % 97) +
            R"(.example.com","displayName":"Zoë “Zed” Lindqvist )" + number + R"(","provider":")" +
            (i % 3 ? "google" : "microsoft") +
            R"(","role":"sender","status":"active","dailyCap":40,"connection":{"kind":"smtp_imap",)"
            R"("status":"connected","lastVerifiedAt":"2026-11-20T08:15:30.123Z","host":"smtp.example.com"},)"
            R"("warmup":{"rampDay":)" +
            QByteArray::number(i % 60) +
            R"(,"sentToday":12,"plannedToday":30,"receivedToday":14,"replies7d":82,"placed7d":190,)"
            R"("inboxPct7d":97.4,"spam7d":3},"sendReady":{"ready":true,"mode":"automatic","warmDays":21,)"
            R"("minWarmDays":14},"sendLimit":30,"signature":"Zoë Lindqvist\nNorthgate Growth\n+46 8 123 45 67",)"
            R"("tags":["dach","q4","finance"],"health":"healthy","version":7,"createdAt":"2026-01-15T09:00:00Z"})";
  }
  return json + "]}";
}

std::optional<qint64> integer(const QJsonObject& from, QLatin1String key) {
  const auto value = from.value(key);
  return value.isDouble() ? std::optional(value.toInteger()) : std::nullopt;
}
std::optional<QString> word(const QJsonObject& from, QLatin1String key) {
  const auto value = from.value(key);
  return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

/// The same records by way of the toolkit's classes, as they are ordinarily used.
MailboxPage byToolkit(const QByteArray& json) {
  MailboxPage page;
  const QJsonObject root = QJsonDocument::fromJson(json).object();
  for (const auto& item : root["items"_L1].toArray()) {
    const QJsonObject from = item.toObject();
    Mailbox box;
    box.id = from["id"_L1].toString();
    box.number = integer(from, "number"_L1);
    box.address = from["address"_L1].toString();
    box.displayName = from["displayName"_L1].toString();
    box.provider = from["provider"_L1].toString();
    box.role = from["role"_L1].toString();
    box.status = MailboxStatus(from["status"_L1].toString());
    box.pausedReason = word(from, "pausedReason"_L1);
    box.dailyCap = from["dailyCap"_L1].toInteger();
    if (const QJsonObject c = from["connection"_L1].toObject(); !c.isEmpty())
      box.connection = {c["kind"_L1].toString(), c["status"_L1].toString(), word(c, "lastError"_L1),
                        word(c, "lastVerifiedAt"_L1), word(c, "host"_L1)};
    const QJsonObject w = from["warmup"_L1].toObject();
    box.warmup = {integer(w, "rampDay"_L1),          w["sentToday"_L1].toInteger(), integer(w, "plannedToday"_L1),
                  w["receivedToday"_L1].toInteger(), w["replies7d"_L1].toInteger(), w["placed7d"_L1].toInteger(),
                  w["inboxPct7d"_L1].toDouble(),     w["spam7d"_L1].toInteger()};
    if (const QJsonObject s = from["sendReady"_L1].toObject(); !s.isEmpty())
      box.sendReady = {s["ready"_L1].toBool(), s["mode"_L1].toString(), word(s, "reason"_L1),
                       s["warmDays"_L1].toInteger(), s["minWarmDays"_L1].toInteger()};
    box.sendLimit = integer(from, "sendLimit"_L1);
    box.signature = word(from, "signature"_L1);
    QList<QString> tags;
    for (const auto& tag : from["tags"_L1].toArray()) tags.append(tag.toString());
    box.tags = tags;
    box.health = word(from, "health"_L1);
    box.version = integer(from, "version"_L1);
    box.createdAt = from["createdAt"_L1].toString();
    box.archivedAt = word(from, "archivedAt"_L1);
    page.items.append(box);
  }
  page.nextCursor = word(root, "nextCursor"_L1);
  return page;
}

/// Reads every value and keeps none: what the parser itself costs.
qsizetype walk(simdjson::ondemand::value value) {
  qsizetype seen = 1;
  switch (value.type()) {
    case simdjson::ondemand::json_type::object:
      for (auto field : value.get_object()) seen += walk(field.value());
      break;
    case simdjson::ondemand::json_type::array:
      for (auto item : value.get_array()) seen += walk(item.value());
      break;
    case simdjson::ondemand::json_type::string:
      seen += qsizetype(std::string_view(value.get_string()).size() > 0);
      break;
    case simdjson::ondemand::json_type::number:
      seen += double(value.get_double()) > 0;
      break;
    default:
      break;
  }
  return seen;
}

qsizetype byParserAlone(const simdjson::padded_string& json) {
  static simdjson::ondemand::parser parser;
  auto document = parser.iterate(json);
  return walk(document.get_value());
}

}  // namespace

bool decode(Scale scale) {
  const QByteArray json = page(scale.of(10000));
  std::printf("Decoding %d mailboxes, %.1f MB\n", scale.of(10000), double(json.size()) / 1e6);
  if (decodeJSON<MailboxPage>(json) != byToolkit(json)) {
    std::printf("  The two decoders disagree.\n");
    return false;
  }
  const simdjson::padded_string padded(json.constData(), size_t(json.size()));
  const int rounds = scale.quick ? 1 : 15;
  // In turns, so that whatever else the machine does strikes them alike.
  Times ours, toolkit, parser;
  for (int i = 0; i < rounds; ++i) {
    ours.ms.push_back(milliseconds([&] { (void)decodeJSON<MailboxPage>(json); }));
    toolkit.ms.push_back(milliseconds([&] { (void)byToolkit(json); }));
    parser.ms.push_back(milliseconds([&] { (void)byParserAlone(padded); }));
  }
  std::printf("  medians of %d rounds, in turns\n", rounds);
  line("records, median", ours.median(), "ms");
  line("the toolkit’s JSON classes, median (baseline)", toolkit.median(), "ms");
  line("the parser alone, median (baseline)", parser.median(), "ms");
  line("toolkit / records", toolkit.median() / ours.median(), "x", "at least 6");
  line("records / parser alone", ours.median() / parser.median(), "x");
  return true;
}

}  // namespace orv::bench
