#pragma once

#include <QList>
#include <QObject>
#include <QString>

namespace orv {

/// A variable that an email can use, as it is offered.
struct EmailVariable {
  Q_GADGET
  Q_PROPERTY(QString name MEMBER name)
  /// What stands for it, in words.
  Q_PROPERTY(QString text MEMBER text)
  /// The heading it is under; may be empty.
  Q_PROPERTY(QString group MEMBER group)

 public:
  QString name;
  QString text;
  QString group{};

  bool operator==(const EmailVariable&) const = default;
};

struct PreviewResponse;

/// What every lead can have, and then what this campaign's leads have as the service tells.
QList<EmailVariable> emailVariables(const PreviewResponse* answer);

}  // namespace orv
