#pragma once

#include <optional>

#include "kit/models/rampup/roadmapStage.h"

namespace orv {

/// A roadmap that accounts get a copy of.
struct RoadmapTemplate {
  using Record = RoadmapTemplate;

  QString id;
  std::optional<qint64> number;
  QString name;
  std::optional<QString> provider;
  QList<RoadmapStage> stages;
  bool isDefault = false;
  /// In days.
  qint64 length = 0;
  qint64 version = 0;
  QString updatedAt;
  std::optional<QString> archivedAt;
  bool operator==(const RoadmapTemplate&) const = default;
};
BOOST_DESCRIBE_STRUCT(RoadmapTemplate, (),
                      (id, number, name, provider, stages, isDefault, length, version, updatedAt, archivedAt))

struct TemplatePage {
  QList<RoadmapTemplate> items;
  std::optional<qint64> archivedCount;
  bool operator==(const TemplatePage&) const = default;
};
BOOST_DESCRIBE_STRUCT(TemplatePage, (), (items, archivedCount))

struct NewTemplateBody {
  QString name;
  std::optional<QString> provider;
  QList<RoadmapStage> stages;
  bool operator==(const NewTemplateBody&) const = default;
};
BOOST_DESCRIBE_STRUCT(NewTemplateBody, (), (name, provider, stages))

/// Carries only what is set.
struct TemplatePatch {
  std::optional<QString> name;
  std::optional<QList<RoadmapStage>> stages;
  bool operator==(const TemplatePatch&) const = default;
};
BOOST_DESCRIBE_STRUCT(TemplatePatch, (), (name, stages))

}  // namespace orv
