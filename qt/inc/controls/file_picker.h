#pragma once

#include "platform/export.h"
#include "qt/inc/controls/multi_edit_control_base.h"

#include <QWidget>

#include <boost/any.hpp>

#include <string>

class QToolButton;

namespace zel::qt {

class MultiEditLineEdit;

/// What a file picker picks.
enum TypeofPath
{
    PathFile = 0,          ///< an existing file
    PathFiles = 1,         ///< one or several existing files
    PathFolder = 2,        ///< a folder
    PathFolderWithName = 3 ///< a folder, behind which a fixed file name is put
};

/// A line edit for a path with a button that opens a file dialog. Typed text and picked path are
/// the same value, a std::string in UTF-8 of at most 260 characters; a longer one is refused, in
/// red, however it came about. Varying values are shown by the line edit.
class ZEL_QT_EXPORT MultiEditFilePicker : public QWidget, public MultiEditControlBase
{
    Q_OBJECT
public:
    /// The parent, which may be null, owns the picker; one on the stack has none.
    MultiEditFilePicker(QWidget* parent, TypeofPath type);
    ~MultiEditFilePicker() override;

    /// The text stays until the next readValue(). Emits nothing.
    void reset() override;
    /// Takes a std::string in UTF-8 or a std::wstring.
    void readValue(const boost::any& value) override;
    bool dataVaries() const override;
    /// Empty while the values vary, otherwise getValue().
    boost::any getCurrentValue() const override;
    /// Takes what readValue() takes. Emits nothing.
    void setValue(const boost::any& value) override;
    /// Shows the marker. Emits nothing.
    void forceVaries() override;

    /// The path as a std::string in UTF-8; for several files a text that counts them. Empty while
    /// the values vary or the user has brought the marker back. A refused text reports the
    /// assertion "ok" of the line edit.
    boost::any getValue() const;

    /// The name filter of the file dialogs, in UTF-8: "Tables (*.csv *.txt)". Empty by default.
    void setFilter(const std::string& filter);
    /// The name that PathFolderWithName puts behind the folder, in UTF-8. Empty by default.
    void setFileName(const std::string& fileName);

    /// Does nothing: a path is not saved with the state of a form.
    void setCanBeSaved(const std::string& id);

Q_SIGNALS:
    /// Editing ended, or the file dialog was closed, also by cancelling.
    void valueChanged();

private Q_SLOTS:
    void onPick();

private:
    QString pick(const QString& current);

    std::string m_filter;
    std::string m_fileName;
    MultiEditLineEdit* m_edit;
    QToolButton* m_button;
    TypeofPath m_type;
};

} // namespace zel::qt
