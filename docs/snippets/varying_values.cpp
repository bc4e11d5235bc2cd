#include "docs/snippets/expect.h"
//! [headers]
#include "base/key_value_storage.h"
#include "qt/inc/controls.h"
#include "qt/inc/validators.h"

#include <vector>

using namespace zel::qt;
//! [headers]

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QTest>

//! [object]
struct Member
{
    double angle; // in degrees
    bool hinged;
};
//! [object]

//! [fill]
void fill(MultiEditControlBase& angle, MultiEditControlBase& hinged,
          const std::vector<Member>& selection)
{
    angle.reset();
    hinged.reset();
    for (const Member& member : selection) {
        angle.readValue(member.angle);
        hinged.readValue(member.hinged);
    }
}
//! [fill]

//! [write]
void write(const MultiEditLineEdit& angle, std::vector<Member>& selection)
{
    const boost::any value = angle.getCurrentValue();
    if (value.empty()) {
        return; // not decided, or a text in red: the members keep what they have
    }
    for (Member& member : selection) {
        member.angle = boost::any_cast<double>(value);
    }
}
//! [write]

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QWidget panel;
    //! [make]
    auto* angle =
        MultiEditLineEdit::create(&panel, QStringLiteral("Angle:"),
                                  new DoubleEditValidator(1, -180.0, 180.0, false), 0, ExpandRight);
    auto* hinged = MultiEditCheckBox::create(QStringLiteral("Hinged"), &panel);
    //! [make]

    //! [save]
    angle->setCanBeSaved(
        "member/angle",
        [angle](zel::KeyValueStorage& storage) {
            const boost::any value = angle->getCurrentValue();
            if (value.empty()) {
                return false; // not decided, or a text in red
            }
            (*storage.values)[angle->getStorageId()] = value;
            return true;
        },
        [angle](const zel::KeyValueStorage& storage) {
            const auto stored = storage.values->find(angle->getStorageId());
            if (stored != storage.values->end()) {
                angle->setValue(stored->second);
            }
        });
    //! [save]
    zel::KeyValueStorage storage;
    angle->setValue(25.0);
    EXPECT(angle->save(storage));
    angle->setValue(10.0);
    angle->load(storage);
    EXPECT(angle->edit().text() == QStringLiteral("25.0"));

    std::vector<Member> selection{{30.0, true}, {45.0, false}};
    fill(*angle, *hinged, selection);
    EXPECT(angle->edit().text() == getVariesString());
    EXPECT(hinged->dataVaries() && hinged->getCurrentValue().empty());
    EXPECT(!angle->save(storage));
    angle->setValue(30.0);
    angle->selectAll();
    QTest::keyClicks(&angle->edit(), QStringLiteral("x"));
    EXPECT(!angle->save(storage));
    fill(*angle, *hinged, selection);

    int ends = 0;
    QObject::connect(angle, &SimpleLineEdit::valueChanged, [&] {
        ++ends;
        write(*angle, selection);
    });
    QTest::keyClick(&angle->edit(), Qt::Key_Return);
    EXPECT(ends == 0 && selection[0].angle == 30.0 && selection[1].angle == 45.0);
    angle->selectAll();
    QTest::keyClicks(&angle->edit(), QStringLiteral("720"));
    QTest::keyClick(&angle->edit(), Qt::Key_Return);
    EXPECT(ends == 1 && selection[0].angle == 180.0 && selection[1].angle == 180.0);
    EXPECT(angle->edit().text() == QStringLiteral("180.0"));
    return failedExpectations();
}
