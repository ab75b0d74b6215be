#pragma once

#include <QList>
#include <QString>
#include <boost/describe/class.hpp>
#include <optional>

#include "kit/api/APIRequest.h"

namespace orv {

/// One of the workspace's tags, or one of the labels that replies get.
struct Label {
  /// What records carry.
  QString key;
  std::optional<QString> name;
  std::optional<QString> tone;
  /// What the person reads.
  QString title() const { return name.value_or(key); }
  bool operator==(const Label&) const = default;
};
BOOST_DESCRIBE_STRUCT(Label, (), (key, name, tone))

struct TagList {
  QList<Label> items;
  bool operator==(const TagList&) const = default;
};
BOOST_DESCRIBE_STRUCT(TagList, (), (items))

struct ReplyLabelList {
  QList<Label> items;
  bool operator==(const ReplyLabelList&) const = default;
};
BOOST_DESCRIBE_STRUCT(ReplyLabelList, (), (items))

namespace Requests {

Request<TagList> listTags();
Request<ReplyLabelList> listReplyLabels();

}  // namespace Requests
}  // namespace orv
