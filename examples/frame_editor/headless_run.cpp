#include "examples/frame_editor/headless_run.h"

#include "examples/frame_editor/command_line.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/field_value.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/json_reading.h"
#include "examples/frame_editor/key_driver.h"
#include "examples/frame_editor/main_window.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/member_table.h"
#include "examples/frame_editor/member_table_columns.h"
#include "examples/frame_editor/member_table_model.h"
#include "examples/frame_editor/model_file.h"
#include "examples/frame_editor/property_panel.h"
#include "examples/frame_editor/unit_settings.h"
#include "examples/frame_editor/window_picture.h"

#include <QApplication>
#include <QSaveFile>
#include <QTextCodec>

#include <cstdio>

namespace frame_editor {

namespace {

/// What ends the run, as the line for standard error.
class RunError : public std::runtime_error
{
public:
    explicit RunError(const QString& message)
        : std::runtime_error(message.toStdString())
    {}
};

void print(const QString& text)
{
    std::fputs((text + QLatin1Char('\n')).toUtf8().constData(), stdout);
}

/// The text of a file. Bytes that are none would get into the model as signs that say nothing.
QString readText(const QString& fileName)
{
    const QByteArray bytes = readWholeFile(fileName);
    QTextCodec::ConverterState state;
    QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0) {
        throw RunError(
            QStringLiteral("%1: %2").arg(fileName, QObject::tr("bytes that are not UTF-8")));
    }
    return text;
}

const Member& memberAt(const Document& document, int index)
{
    return document.model().members.at(static_cast<std::size_t>(index));
}

/// "2.50 kN/m (2.5)": what the user reads, and the number behind it. Choices, yes and no are in the
/// words that "--set" takes, in every language.
QString valueText(const MemberProperty& property, const PropertyValue& value)
{
    if (property.kind == PropertyKind::Flag) {
        return std::get<bool>(value) ? QStringLiteral("yes") : QStringLiteral("no");
    }
    if (property.kind == PropertyKind::Choice) {
        return property.choiceName(std::get<QString>(value));
    }
    const QString text = displayText(property, value);
    if (const double* number = std::get_if<double>(&value)) {
        return QStringLiteral("%1 (%2)").arg(text, QString::number(*number, 'g', 17));
    }
    return property.kind == PropertyKind::Count ? text : QLatin1Char('"') + text + QLatin1Char('"');
}

class Run
{
public:
    Run(const CommandLine& line, Document& document, UnitSettings& units, MainWindow& window)
        : m_line(line)
        , m_document(document)
        , m_units(units)
        , m_window(window)
    {}

    void perform()
    {
        if (!m_line.formFile.isEmpty()) {
            m_window.panel().setForm(loadForm(m_line.formFile));
        }
        m_document.open(m_line.modelFile);
        m_units.setColumn(m_line.column);
        select();
        m_window.show();
        QApplication::setActiveWindow(&m_window);
        QApplication::processEvents();
        for (const CommandLine::Setting& setting : m_line.settings) {
            enter(setting);
        }
        for (const CommandLine::CellEdit& edit : m_line.cells) {
            enter(edit);
        }
        if (m_line.list) {
            listMembers();
        }
        if (m_line.print) {
            printMembers();
        }
        writeFiles();
    }

private:
    void select()
    {
        QVector<int> members;
        for (const QString& name : m_line.select) {
            const int member = m_document.model().findMember(name);
            if (member < 0) {
                throw RunError(
                    QObject::tr("%1: there is no member \"%2\"").arg(m_line.modelFile, name));
            }
            members << member;
        }
        if (m_line.selectAll) {
            members = allMembers();
        }
        m_document.selection().set(members);
    }

    QVector<int> allMembers() const
    {
        QVector<int> members;
        for (std::size_t i = 0; i < m_document.model().members.size(); ++i) {
            members << static_cast<int>(i);
        }
        return members;
    }

    void enter(const CommandLine::Setting& setting)
    {
        const MemberProperty* property = findMemberProperty(setting.first);
        if (!property) {
            throw RunError(QObject::tr("there is no property \"%1\"").arg(setting.first));
        }
        PropertyField* field = m_window.panel().field(property->id);
        if (!field) {
            throw RunError(QObject::tr("the form has no field for \"%1\"").arg(property->id));
        }
        if (!field->applies()) {
            throw RunError(QStringLiteral("%1: %2").arg(property->label, noSuchValue()));
        }
        if (!field->editor()->isEnabled()) {
            // A group that is off; the box itself can always be decided.
            if (property->kind != PropertyKind::Flag) {
                throw RunError(QObject::tr("%1: the field is disabled").arg(property->label));
            }
        }
        const QVector<int> members = m_document.selection().members();
        std::vector<PropertyValue> before;
        for (const int member : members) {
            before.push_back(property->get(memberAt(m_document, member)));
        }
        FieldOutcome outcome;
        QString moved;
        {
            const QObject scope; // ends the connection, also when a text cannot be entered
            QObject::connect(field, &PropertyField::committed, &scope, [&outcome, &moved, field] {
                if (outcome.kind != FieldOutcome::Refused) {
                    outcome = field->lastOutcome();
                }
                if (!outcome.message.isEmpty()) {
                    moved = outcome.message;
                }
            });
            enterText(*field, setting.second);
        }
        if (outcome.kind == FieldOutcome::Refused) {
            throw RunError(outcome.message);
        }
        for (int i = 0; i < members.size(); ++i) {
            tell(*property, members.at(i), before.at(static_cast<std::size_t>(i)));
        }
        if (!moved.isEmpty()) {
            print(moved);
        }
    }

    void enter(const CommandLine::CellEdit& edit)
    {
        MemberTable& table = m_window.table();
        const int column = findMemberColumn(edit.column);
        if (column < 0) {
            throw RunError(QObject::tr("the table has no column \"%1\"").arg(edit.column));
        }
        const int member = m_document.model().findMember(edit.member);
        if (member < 0 && !edit.member.isEmpty()) {
            throw RunError(
                QObject::tr("%1: there is no member \"%2\"").arg(m_line.modelFile, edit.member));
        }
        const int row = member < 0 ? table.cells().memberCount() : member;
        QString outcome;
        QString refusal;
        const auto telling = QObject::connect(&table, &MemberTable::told, &table,
                                              [&outcome](const QString& text) { outcome = text; });
        const auto refusing = QObject::connect(&table.cells(), &MemberTableModel::refused, &table,
                                               [&refusal](const QString& text) { refusal = text; });
        const QModelIndex cell = table.cells().index(row, column);
        if (edit.isPaste) {
            pasteText(table, cell, readText(edit.text));
        } else {
            enterText(table, cell, edit.text);
        }
        QObject::disconnect(telling);
        QObject::disconnect(refusing);
        if (!refusal.isEmpty()) {
            throw RunError(refusal);
        }
        print(outcome.isEmpty() ? QObject::tr("%1.%2: unchanged").arg(edit.member, edit.column)
                                : outcome);
    }

    void tell(const MemberProperty& property, int member, const PropertyValue& before) const
    {
        const Member& changed = memberAt(m_document, member);
        const PropertyValue after = property.get(changed);
        const QString place = QStringLiteral("%1.%2").arg(changed.name, property.id);
        if (before == after) {
            print(QObject::tr("%1: %2, unchanged").arg(place, valueText(property, before)));
        } else {
            print(QStringLiteral("%1: %2 -> %3")
                      .arg(place, valueText(property, before), valueText(property, after)));
        }
    }

    QVector<int> told() const
    {
        return m_document.selection().isEmpty() ? allMembers() : m_document.selection().members();
    }

    void listMembers() const
    {
        const FrameModel& model = m_document.model();
        const MemberProperty& kind = *findMemberProperty(QStringLiteral("kind"));
        const QVector<int> members = told();
        for (const int index : members) {
            const Member& member = memberAt(m_document, index);
            print(QStringLiteral("%1\t%2\t%3\t%4 - %5\t%6")
                      .arg(member.name, valueText(kind, kind.get(member)),
                           member.kind == MemberKind::Link ? QString() : member.section,
                           model.nodes.at(static_cast<std::size_t>(member.start)).name,
                           model.nodes.at(static_cast<std::size_t>(member.end)).name,
                           formatQuantity(m_units.context(), 1001, model.memberLength(member))));
        }
    }

    void printMembers() const
    {
        const QVector<int> members = told();
        for (const int index : members) {
            const Member& member = memberAt(m_document, index);
            for (const MemberProperty& property : memberProperties()) {
                print(
                    QStringLiteral("%1.%2: %3")
                        .arg(member.name, property.id, valueText(property, property.get(member))));
            }
        }
    }

    /// Nothing is in place before all that can fail has been done, but for the model's own file.
    void writeFiles()
    {
        QSaveFile picture(m_line.screenshotFile);
        if (!m_line.screenshotFile.isEmpty()) {
            const QImage image = windowPicture(m_window);
            if (!picture.open(QIODevice::WriteOnly) || !image.save(&picture, "PNG")) {
                throw RunError(QObject::tr("%1: not saved: %2")
                                   .arg(m_line.screenshotFile, picture.errorString()));
            }
        }
        if (!m_line.saveFile.isEmpty()) {
            m_document.saveAs(m_line.saveFile);
            print(QObject::tr("saved %1").arg(m_line.saveFile));
        }
        if (!m_line.screenshotFile.isEmpty()) {
            if (!picture.commit()) {
                throw RunError(QObject::tr("%1: not saved: %2")
                                   .arg(m_line.screenshotFile, picture.errorString()));
            }
            print(QObject::tr("saved %1").arg(m_line.screenshotFile));
        }
    }

    const CommandLine& m_line;
    Document& m_document;
    UnitSettings& m_units;
    MainWindow& m_window;
};

} // namespace

int runHeadless(const CommandLine& line, Document& document, UnitSettings& units,
                MainWindow& window)
{
    try {
        Run(line, document, units, window).perform();
    } catch (const std::runtime_error& error) {
        std::fflush(stdout);
        std::fprintf(stderr, "frame_editor: %s\n", error.what());
        return 1;
    }
    return 0;
}

} // namespace frame_editor
