#pragma once

#include <QObject>
#include <QString>

namespace orv {

/// The desktop's notifications: shown beside whatever the person does, gone again by themselves.
class Notifications : public QObject {
  Q_OBJECT

 public:
  struct Notice {
    /// The program's own name for it. A second one of that name takes the place of the first.
    QString id;
    QString title;
    /// Plain text, a stranger's maybe.
    QString body;
    enum class Urgency { normal, critical } urgency = Urgency::normal;
    /// What the desktop sorts and sounds it by: "email.arrived", say.
    QString category;
    bool operator==(const Notice&) const = default;
  };

  using QObject::QObject;

  /// Why nothing is shown, a sentence; empty as far as is known.
  virtual QString trouble() const { return {}; }

  /// Nothing happens where the desktop has none.
  virtual void show(const Notice& notice) = 0;
  /// What it told is seen, or true no longer.
  virtual void withdraw(const QString& id) = 0;

 Q_SIGNALS:
  /// The person followed it; it is gone now. With the token, if there is one, the window may come forward.
  void followed(const QString& id, const QString& token);
  void troubleChanged();
};

}  // namespace orv
