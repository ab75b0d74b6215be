#pragma once

#include <boost/describe/class.hpp>

#include "app/base/RecordModel.h"
#include "app/base/RowFields.h"
#include "app/base/Store.h"
#include "app/campaigns/CampaignContext.h"
#include "app/campaigns/SequenceDraft.h"
#include "app/campaigns/SequencePreview.h"
#include "app/campaigns/sendTimes.h"

namespace orv {

/// One of the days that the strip shows.
struct StripDay {
  QString id;
  /// "Today", "Sat 21", "Tue 1 Dec".
  QString title;
  bool sends = false;
  bool operator==(const StripDay&) const = default;
};
BOOST_DESCRIBE_STRUCT(StripDay, (), (id, title, sends))
ORV_DECLARE_ROW(StripDay)

/// An email on its day.
struct StripEmail {
  /// The draft's key of the step.
  QString id;
  /// In the sequence.
  int place = 0;
  /// "Email 2".
  QString title;
  /// "09:05".
  QString time;
  int column = 0;
  /// Where its wait ends when nothing is sent on that day; -1 when something is, or when that day is not shown.
  int dueColumn = -1;
  /// Its place among those of the day, and how many there are.
  int ofDay = 0;
  int onDay = 1;
  bool current = false;
  bool movable = false;
  /// All of it in words, for who hears it.
  QString words;
  bool operator==(const StripEmail&) const = default;
};
BOOST_DESCRIBE_STRUCT(StripEmail, (),
                      (id, place, title, time, column, dueColumn, ofDay, onDay, current, movable, words))
ORV_DECLARE_ROW(StripEmail)

class StripDays final : public RecordModel<StripDay> {
 public:
  using RecordModel::RecordModel;
};
class StripEmails final : public RecordModel<StripEmail> {
 public:
  using RecordModel::RecordModel;
};

/// When the lead of the preview would get each email of the sequence being written: an estimate, reckoned here.
///
/// Reckons only while somebody looks, and anew as time passes.
class SequenceDays final : public Store {
  Q_OBJECT
  Q_PROPERTY(bool watched READ watched WRITE setWatched NOTIFY changed)
  Q_PROPERTY(orv::ListModel* days READ days CONSTANT)
  Q_PROPERTY(orv::ListModel* emails READ emails CONSTANT)
  Q_PROPERTY(QString whose READ whose NOTIFY changed)
  Q_PROPERTY(QString note READ note NOTIFY changed)
  Q_PROPERTY(QString laterText READ laterText NOTIFY changed)
  Q_PROPERTY(QString laterWords READ laterWords NOTIFY changed)
  Q_PROPERTY(QString movedText READ movedText NOTIFY changed)
  Q_PROPERTY(QStringList dates READ dates NOTIFY changed)

 public:
  static constexpr int dayCount = 14;
  static constexpr std::chrono::minutes pace{1};
  /// Changes the draft as the editor does.
  using Edit = std::function<void(const std::function<void(SequenceDraft&)>&)>;

  SequenceDays(CampaignContext& context, const SequenceDraft& draft, SequencePreview& preview, Edit edit);

  /// The strip is on the screen.
  bool watched() const { return m_watched; }
  void setWatched(bool watched);
  StripDays* days() { return &m_days; }
  StripEmails* emails() { return &m_emails; }
  /// "Jonas Verbeke, Brussels time"; a lead added now where the preview's gets nothing more.
  QString whose() const;
  /// That it is an estimate, or the one thing that keeps dates from being told.
  QString note() const;
  /// "+3 later"; empty when no email goes out after the days shown.
  QString laterText() const;
  /// The same with the emails and their days.
  QString laterWords() const { return m_later.join(u", "); }
  /// Of the email that the editor shows: "Sunday, so Monday 23 Nov". Empty when it goes out when its wait ends.
  QString movedText() const { return m_movedText; }
  /// "Mon 23" of each email of the sequence; empty where it has gone out or will not.
  const QStringList& dates() const { return m_dates; }

  /// The draft, or the email that the editor shows, is another one.
  void follow(const QUuid& current);
  /// Lengthens or shortens the wait before the email at `place`.
  Q_INVOKABLE void addToWait(int place, int days);
  /// Has that email's wait end on the day of that column, or as near to it as a wait can.
  Q_INVOKABLE void moveTo(int place, int column);

  void close() override;

 Q_SIGNALS:
  void changed();

 private:
  struct Reckoned {
    SendPlan plan;
    /// Of the first email in the plan.
    qsizetype first = 0;
    bool operator==(const Reckoned&) const = default;
  };

  void tick();
  void reckon();
  const CampaignLead* leadUnderWay() const;
  Reckoned question() const;
  void showDays();
  void show();
  StripEmail email(qsizetype place, const SendTime& time) const;
  QString endedText() const;
  QDate dayOf(const QDateTime& instant) const { return instant.toTimeZone(m_zone).date(); }
  int columnOf(const QDateTime& instant) const;
  void setWait(int place, qint64 days);
  void offerUndo(const QUuid& step, qint64 before);

  CampaignContext& m_context;
  const SequenceDraft& m_draft;
  SequencePreview& m_preview;
  Edit m_edit;
  StripDays m_days;
  StripEmails m_emails;
  QUuid m_current;
  Reckoned m_reckoned;
  QList<SendTime> m_times;
  QTimeZone m_zone;
  QDate m_today;
  QStringList m_dates;
  QStringList m_later;
  QString m_movedText;
  bool m_watched = false;
  std::unique_ptr<Clock::Timer> m_timer;
  /// The message that offers to take the last change back, and what it would.
  struct Offer {
    QUuid message, step;
    qint64 before = 0;
  } m_offer;
};

}  // namespace orv
