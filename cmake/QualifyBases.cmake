# cmake -DFILE=metatypes.json -P QualifyBases.cmake
# moc notes a base class by the name that its source calls it; QML's tools know it by its whole name, so that without this
# nobody, the linter least of all, sees what a type of namespace orv inherits. A template has no description of its own.
file(READ "${FILE}" text)
string(REGEX REPLACE "(\"access\": \"public\",[ \n]*\"name\": \")(RecordModel|TableModel)<[^\"]*(\"[ \n]*})" "\\1ListModel\\3" text "${text}")
string(REGEX REPLACE "(\"access\": \"public\",[ \n]*\"name\": \")Draft<[^\"]*(\"[ \n]*})" "\\1FieldDraft\\2" text "${text}")
string(REGEX REPLACE "(\"access\": \"public\",[ \n]*\"name\": \")([A-PR-Z][A-Za-z]*\"[ \n]*})" "\\1orv::\\2" text "${text}")
file(WRITE "${FILE}" "${text}")
