#pragma once

#include <QList>
#include <QMap>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/JSONValue.h"
#include "kit/models/campaigns/sequence.h"

namespace orv {

/// One email rendered for a lead.
struct QcPreview {
  qint64 position = 0;
  QString label;
  QString subject;
  QString body;
  /// The variant that this lead would get.
  bool picked = false;
  QList<QString> warnings;
  bool operator==(const QcPreview&) const = default;
};
BOOST_DESCRIBE_STRUCT(QcPreview, (), (position, label, subject, body, picked, warnings))

struct PreviewResponse {
  struct Lead {
    std::optional<QString> id;
    QString email;
    std::optional<QMap<QString, JSONValue>> data;
    bool operator==(const Lead&) const = default;
  };
  struct Sender {
    QString address;
    std::optional<QString> displayName;
    bool operator==(const Sender&) const = default;
  };
  using Variant = QcPreview;
  struct Step {
    qint64 position = 0;
    QList<Variant> variants;
    bool operator==(const Step&) const = default;
  };
  struct Variable {
    QString name;
    /// This lead's value.
    std::optional<QString> value;
    /// A built-in lead field rather than a custom one.
    std::optional<bool> standard;
    std::optional<QString> description;
    bool operator==(const Variable&) const = default;
  };
  std::optional<Lead> lead;
  std::optional<Sender> sender;
  QList<Step> steps;
  std::optional<QList<Variable>> variables;
  bool operator==(const PreviewResponse&) const = default;
};
BOOST_DESCRIBE_STRUCT(PreviewResponse::Lead, (), (id, email, data))
BOOST_DESCRIBE_STRUCT(PreviewResponse::Sender, (), (address, displayName))
BOOST_DESCRIBE_STRUCT(PreviewResponse::Step, (), (position, variants))
BOOST_DESCRIBE_STRUCT(PreviewResponse::Variable, (), (name, value, standard, description))
BOOST_DESCRIBE_STRUCT(PreviewResponse, (), (lead, sender, steps, variables))

struct PreviewBody {
  std::optional<QString> leadId;
  /// Unsaved steps to render instead of the saved ones.
  std::optional<QList<StepIn>> steps;
  bool operator==(const PreviewBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(PreviewBody, (), (leadId, steps))

}  // namespace orv
