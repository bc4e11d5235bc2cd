#pragma once

#include "base/key_value_storage.h"

#include <QString>
#include <QWidget>

#include <memory>
#include <vector>

class QLabel;

namespace zel::qt {
class MultiEditCheckBoxGroup;
}

namespace frame_editor {

class Document;
class UnitSettings;

/// Numbers that follow from the selected members, in the active units; check boxes choose which.
class ResultsView : public QWidget
{
    Q_OBJECT
public:
    ResultsView(Document& document, UnitSettings& units, QWidget* parent);
    ~ResultsView() override;

    /// Which results are shown, under keys of their own. A result without a key in the store stays
    /// as it is.
    zel::KeyValueStorage state() const;
    void setState(const zel::KeyValueStorage& storage);

Q_SIGNALS:
    /// The user chose other results.
    void stateChanged();

private:
    void showResults();

    Document& m_document;
    std::unique_ptr<zel::qt::MultiEditCheckBoxGroup> m_choice;
    std::vector<QLabel*> m_captions;
    std::vector<QLabel*> m_values;
};

} // namespace frame_editor
