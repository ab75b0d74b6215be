#pragma once

#include <QtQml/qqml.h>

#include "app/base/Draft.h"
#include "app/base/Form.h"
#include "app/base/JobForm.h"
#include "app/base/Jobs.h"
#include "app/base/ListModel.h"
#include "app/base/NameForm.h"
#include "app/base/Overlays.h"
#include "app/base/PagedListBase.h"
#include "app/base/Program.h"
#include "app/base/Recovery.h"
#include "app/base/Resource.h"
#include "app/base/RowSelection.h"
#include "app/base/Store.h"
#include "app/base/Toasts.h"

// Types of app/ by the names that pages use. They are registered here because app/ knows no QML.

namespace orv::qml {

struct FieldDraftType {
  Q_GADGET
  QML_FOREIGN(orv::FieldDraft)
  QML_NAMED_ELEMENT(FieldDraft)
  QML_UNCREATABLE("The application model owns it.")
};

struct FormType {
  Q_GADGET
  QML_FOREIGN(orv::Form)
  QML_NAMED_ELEMENT(Form)
  QML_UNCREATABLE("The application model owns it.")
};

struct JobType {
  Q_GADGET
  QML_FOREIGN(orv::Job)
  QML_NAMED_ELEMENT(Job)
  QML_UNCREATABLE("The application model owns it.")
};

struct JobFormType {
  Q_GADGET
  QML_FOREIGN(orv::JobForm)
  QML_NAMED_ELEMENT(JobForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct JobsType {
  Q_GADGET
  QML_FOREIGN(orv::Jobs)
  QML_NAMED_ELEMENT(Jobs)
  QML_UNCREATABLE("The application model owns it.")
};

struct ListModelType {
  Q_GADGET
  QML_FOREIGN(orv::ListModel)
  QML_NAMED_ELEMENT(OrvellaListModel)
  QML_UNCREATABLE("The application model owns it.")
};

struct NameFormType {
  Q_GADGET
  QML_FOREIGN(orv::NameForm)
  QML_NAMED_ELEMENT(NameForm)
  QML_UNCREATABLE("The application model owns it.")
};

struct OverlaysType {
  Q_GADGET
  QML_FOREIGN(orv::Overlays)
  QML_NAMED_ELEMENT(Overlays)
  QML_UNCREATABLE("The application model owns it.")
};

struct PagedListType {
  Q_GADGET
  QML_FOREIGN(orv::PagedListBase)
  QML_NAMED_ELEMENT(PagedList)
  QML_UNCREATABLE("The application model owns it.")
};

struct ProgramType {
  Q_GADGET
  QML_FOREIGN(orv::Program)
  QML_NAMED_ELEMENT(Program)
  QML_UNCREATABLE("The application model owns it.")
};

struct RecoveryType {
  Q_GADGET
  QML_FOREIGN(orv::Recovery)
  QML_NAMED_ELEMENT(Recovery)
  QML_UNCREATABLE("The application model owns it.")
};

struct ResourceBaseType {
  Q_GADGET
  QML_FOREIGN(orv::ResourceBase)
  QML_NAMED_ELEMENT(Resource)
  QML_UNCREATABLE("The application model owns it.")
};

struct PageActionType {
  Q_GADGET
  QML_FOREIGN(orv::PageAction)
  QML_VALUE_TYPE(pageAction)
};

struct StoreType {
  Q_GADGET
  QML_FOREIGN(orv::Store)
  QML_NAMED_ELEMENT(Store)
  QML_UNCREATABLE("The application model owns it.")
};

struct RowSelectionType {
  Q_GADGET
  QML_FOREIGN(orv::RowSelection)
  QML_NAMED_ELEMENT(RowSelection)
  QML_UNCREATABLE("The application model owns it.")
};

struct ToastsType {
  Q_GADGET
  QML_FOREIGN(orv::Toasts)
  QML_NAMED_ELEMENT(Toasts)
  QML_UNCREATABLE("The application model owns it.")
};

}  // namespace orv::qml
