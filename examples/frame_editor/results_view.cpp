#include "examples/frame_editor/results_view.h"

#include "examples/frame_editor/document.h"
#include "examples/frame_editor/member_results.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/unit_settings.h"

#include "qt/inc/controls.h"

#include <QGridLayout>
#include <QLabel>

#include <deque>

namespace frame_editor {

namespace {

constexpr int boxColumns = 2;

/// A layouter for check boxes in rows of two, which none of the library's makes.
class RowsOfTwo : public zel::qt::ILayouter
{
public:
    void onCreate(QWidget* widget) override
    {
        m_layout = new QGridLayout(widget);
        m_layout->setContentsMargins(4, 4, 4, 4);
        m_layout->setVerticalSpacing(0);
    }
    void onAdd(QWidget* widget) override
    {
        m_layout->addWidget(widget, m_count / boxColumns, m_count % boxColumns);
        ++m_count;
    }

private:
    QGridLayout* m_layout = nullptr;
    int m_count = 0;
};

} // namespace

ResultsView::ResultsView(Document& document, UnitSettings& units, QWidget* parent)
    : QWidget(parent)
    , m_document(document)
{
    setObjectName(QStringLiteral("results"));
    auto* layout = new QVBoxLayout(this);
    auto* choice = new QWidget(this);
    layout->addWidget(choice);
    RowsOfTwo layouter;
    layouter.onCreate(choice);
    std::deque<QString> labels;
    std::deque<QString> meanings;
    for (const MemberResult& result : memberResults()) {
        labels.push_back(result.label);
        meanings.push_back(result.meaning);
    }
    m_choice =
        std::make_unique<zel::qt::MultiEditCheckBoxGroup>(choice, layouter, labels, meanings);
    m_choice->setCanBeSaved("results");

    auto* values = new QGridLayout;
    values->setColumnStretch(1, 1);
    layout->addLayout(values);
    layout->addStretch(1);
    int row = 0;
    for (const MemberResult& result : memberResults()) {
        m_captions.push_back(new QLabel(result.label, this));
        m_values.push_back(new QLabel(this));
        m_values.back()->setObjectName(QStringLiteral("result_") + result.id);
        m_values.back()->setAccessibleName(result.label);
        m_values.back()->setTextInteractionFlags(Qt::TextSelectableByMouse);
        m_values.back()->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        for (QLabel* label : {m_captions.back(), m_values.back()}) {
            label->setToolTip(result.meaning);
        }
        values->addWidget(m_captions.back(), row, 0);
        values->addWidget(m_values.back(), row, 1);
        ++row;
    }
    for (std::size_t i = 0; i < m_choice->size(); ++i) {
        m_choice->readValue(i, true);
    }
    m_choice->onEndRead();
    connect(m_choice.get(), &zel::qt::MultiEditCheckBoxGroup::valueChanged, this, [this] {
        showResults();
        Q_EMIT stateChanged();
    });
    connect(&document, &Document::changed, this, &ResultsView::showResults);
    connect(&document, &Document::selectionChanged, this, &ResultsView::showResults);
    connect(&units, &UnitSettings::changed, this, &ResultsView::showResults);
    showResults();
}

ResultsView::~ResultsView() = default;

zel::KeyValueStorage ResultsView::state() const
{
    zel::KeyValueStorage storage;
    const auto boxes = findChildren<zel::qt::MultiEditCheckBox*>();
    for (const auto* box : boxes) {
        if (box->canBeSaved()) {
            box->save(storage);
        }
    }
    return storage;
}

void ResultsView::setState(const zel::KeyValueStorage& storage)
{
    const auto boxes = findChildren<zel::qt::MultiEditCheckBox*>();
    for (auto* box : boxes) {
        if (box->canBeSaved()) {
            box->load(storage);
        }
    }
    // The box that loads last keeps silent.
    m_choice->onEndRead();
    showResults();
}

void ResultsView::showResults()
{
    const QVector<int>& members = m_document.selection().members();
    const FrameModel& model = m_document.model();
    for (std::size_t i = 0; i < memberResults().size(); ++i) {
        const MemberResult& result = memberResults().at(i);
        QString text = members.isEmpty() ? QString() : tr("none");
        bool isFirst = true;
        for (const int member : members) {
            const Member& one = model.members.at(static_cast<std::size_t>(member));
            if (one.kind == MemberKind::Link && !result.isForLinks) {
                continue;
            }
            const QString shown = formatQuantity(zel::units::v1::get_active_input_context(),
                                                 result.unitSet, result.value(model, one));
            text = isFirst || text == shown ? shown : zel::qt::getVariesString();
            isFirst = false;
        }
        m_values.at(i)->setText(text);
        for (QLabel* label : {m_captions.at(i), m_values.at(i)}) {
            label->setVisible(m_choice->getValue(i));
        }
    }
}

} // namespace frame_editor
