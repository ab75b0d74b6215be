#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

namespace orv {

/// How close the agent is to what the workspace wants.
struct SetterTraining {
  /// Everything so far.
  struct Record {
    qint64 total = 0;
    qint64 asWritten = 0;
    qint64 edited = 0;
    /// Drafts sent in another style.
    qint64 picked = 0;
    qint64 skipped = 0;
    qint64 rules = 0;
    /// Rules that a member typed.
    qint64 fromYou = 0;
    /// Drafts that were written with rules.
    qint64 usedIn = 0;
    bool operator==(const Record&) const = default;
  };
  /// The last switch between the modes, with how things stood at that moment.
  struct Flip {
    /// To Auto; back to Draft otherwise.
    bool auto_ = false;
    std::optional<QString> by;
    QString at;
    qint64 reviewed = 0;
    qint64 matched = 0;
    bool operator==(const Flip&) const = default;
  };
  /// Of the drafts in the window.
  qint64 reviewed = 0;
  /// Of those, sent without real changes.
  qint64 matched = 0;
  /// How many of the last drafts count.
  qint64 window = 0;
  /// Matches that make it ready to send by itself.
  qint64 target = 0;
  Record record;
  std::optional<Flip> lastFlip;
  bool operator==(const SetterTraining&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterTraining::Record, (), (total, asWritten, edited, picked, skipped, rules, fromYou, usedIn))
BOOST_DESCRIBE_STRUCT(SetterTraining::Flip, (), (auto_, by, at, reviewed, matched))
BOOST_DESCRIBE_STRUCT(SetterTraining, (), (reviewed, matched, window, target, record, lastFlip))

/// A rule of style that the agent follows.
struct SetterLesson {
  QString id;
  QString text;
  QString source;
  QString status;
  /// How often it has been seen.
  qint64 times = 0;
  /// Whose review taught it.
  std::optional<QString> fromName;
  QString createdAt;
  bool operator==(const SetterLesson&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterLesson, (), (id, text, source, status, times, fromName, createdAt))

struct SetterLessons {
  QList<SetterLesson> items;
  bool operator==(const SetterLessons&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterLessons, (), (items))

struct SetterLessonBody {
  QString text;
  bool operator==(const SetterLessonBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterLessonBody, (), (text))

/// Carries only what is set.
struct SetterLessonPatch {
  std::optional<QString> text;
  std::optional<QString> status;
  bool operator==(const SetterLessonPatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterLessonPatch, (), (text, status))

/// What the agent does with the replies to a campaign.
struct SetterCampaignMode {
  QString campaignId;
  /// Absent where the campaign follows the default.
  std::optional<QString> mode;
  bool operator==(const SetterCampaignMode&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterCampaignMode, (), (campaignId, mode))

struct SetterCampaignModes {
  QList<SetterCampaignMode> items;
  bool operator==(const SetterCampaignModes&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterCampaignModes, (), (items))

struct SetterModeBody {
  /// Absent: the campaign follows the default.
  std::optional<QString> mode;
  bool operator==(const SetterModeBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(SetterModeBody, (), (mode))

}  // namespace orv
