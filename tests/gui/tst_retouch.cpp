// The retouches through the main window: the four one-shot commands, and the three
// boxes with their live preview, driven with keys and clicks as a user would.
#include "app/mainwindow.h"
#include "canvas/qlayer.h"
#include "canvas/qlayerlist.h"
#include "canvas/qviewbox.h"
#include "imagecompare.h"
#include "imaging/hslshift.h"
#include "scriptedprompts.h"
#include "testfiles.h"

#include <QAction>
#include <QCheckBox>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

namespace {

// One string per row: '.' a transparent pixel, any other character an opaque colour
// of its own.
QImage picture(const QList<QByteArray>& rows)
{
    QImage image(int(rows.first().size()), int(rows.size()), QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const char c = rows.at(y).at(x);
            image.setPixel(x, y, c == '.' ? 0x00102030u : 0xff000000u | uint(c) * 0x030507u);
        }
    }
    return image;
}

// Two elements whose every cell holds image at position; the first is selected, so
// that the second shows what a retouch must leave alone.
Character twoElements(const QImage& image, QPoint position)
{
    Character character(Character::XP, QSize());
    const int cells = character.cellCount();
    for (int e = 0; e < 2; ++e) {
        character.insertElement(e, "e" + QByteArray::number(e), QByteArray(),
                                QList<QImage>(cells, image), QList<QPoint>(cells, position), true);
    }
    character.setSelectedElements({0});
    return character;
}

// The boxes, by the window's action that opens them and the slider a test moves.
enum Box
{
    Resize,
    Rotate,
    Colour
};
const char* const Actions[] = {"resize", "rotate", "hue"};
const char* const Sliders[] = {"Largeur", "Angle", "Teinte"};
const char* const Labels[] = {"Redimension", "Rotation", "Changement de coloration"};

// What the box's retouch does to the untouched model at slider value v (the other
// controls as the box opens), applied once.
void applyOnce(Character& character, Box box, int v)
{
    switch (box) {
    case Resize:
        character.resizeSelection(v / 100.0, 1.0, true, false, false);
        break;
    case Rotate:
        character.rotateSelection(v, false, false);
        break;
    case Colour:
        character.shiftCharacterHsl(HslShift{float(v), 0, 0}, false, false);
        break;
    }
}

} // namespace

// A failed comparison inside the helper ends the test function too.
#define VERIFY_MODEL(expected)                                                                     \
    do {                                                                                           \
        verifyModel(expected);                                                                     \
        if (QTest::currentTestFailed())                                                            \
            return;                                                                                \
    } while (false)

class TestRetouch : public QObject
{
    Q_OBJECT

private:
    SettingsSandbox* m_sandbox = nullptr;
    ScriptedPrompts* m_prompts = nullptr;
    MainWindow* m_window = nullptr;
    QLayer* m_layer = nullptr;
    Character m_original;

    Character* model() { return m_layer->character(); }

    void open(const Character& character)
    {
        m_original = character;
        m_layer = m_window->addDocument(character, QStringLiteral("t"));
    }

    QViewBox* openBox(Box box)
    {
        m_window->action(QString::fromLatin1(Actions[box]))->trigger();
        return m_window->findChild<QViewBox*>();
    }

    // Moves the box's slider by page steps with the keyboard; returns its value.
    int pageUp(QViewBox* box, Box kind, int times)
    {
        QSlider* slider = box->findChild<QSlider*>(QString::fromLatin1(Sliders[kind]));
        for (int i = 0; i < times; ++i)
            QTest::keyClick(slider, Qt::Key_PageUp);
        return slider->value();
    }

    // The model shows expected's pictures, and the canvas shows the model.
    void verifyModel(Character expected)
    {
        QCOMPARE(model()->cellImages(), expected.cellImages());
        QCOMPARE(model()->cellPositions(), expected.cellPositions());
        expected.setZoom(model()->zoom());
        expected.setShowGrid(model()->showGrid());
        ZK_COMPARE_IMAGES(model()->cachedView(), expected.render());
    }

    Character expectedAt(Box box, int value)
    {
        Character expected = m_original;
        applyOnce(expected, box, value);
        return expected;
    }

    static bool gone(const QPointer<QViewBox>& box)
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return box.isNull();
    }

private slots:
    void init()
    {
        m_sandbox = new SettingsSandbox;
        m_prompts = new ScriptedPrompts;
        m_window = new MainWindow;
    }

    void cleanup()
    {
        for (QLayer* layer : m_window->layers())
            layer->setAskOnClose(false);
        delete m_window;
        delete m_prompts;
        delete m_sandbox;
    }

    void oneShotCommands_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QByteArray>("label");
        QTest::addColumn<QImage>("image");
        QTest::addColumn<QPoint>("position");
        QTest::newRow("flipH") << QStringLiteral("flipH") << QByteArray("Retournement horizontal")
                               << picture({"cba", "fed"}) << QPoint(1, 2);
        QTest::newRow("flipV") << QStringLiteral("flipV") << QByteArray("Retournement vertical")
                               << picture({"def", "abc"}) << QPoint(1, 2);
        QTest::newRow("rotateP90")
            << QStringLiteral("rotateP90") << QByteArray("Rotation de 90\xb0")
            << picture({"da", "eb", "fc"}) << QPoint(1, 2);
        QTest::newRow("rotateM90")
            << QStringLiteral("rotateM90") << QByteArray("Rotation de -90\xb0")
            << picture({"cf", "be", "ad"}) << QPoint(1, 2);
    }

    void oneShotCommands()
    {
        QFETCH(QString, action);
        QFETCH(QByteArray, label);
        QFETCH(QImage, image);
        QFETCH(QPoint, position);
        // Without a document the command does nothing.
        m_window->action(action)->trigger();
        open(twoElements(picture({"abc", "def"}), QPoint(1, 2)));

        m_window->action(action)->trigger();
        QCOMPARE(m_layer->history()->size(), 2);
        QCOMPARE(m_layer->history()->labelAt(1), label);
        QVERIFY(m_layer->isModified());
        for (int c = 0; c < model()->cellCount(); ++c) {
            ZK_COMPARE_IMAGES(model()->cellImage(0, c), image);
            QCOMPARE(model()->cellPosition(0, c), position);
        }
        QCOMPARE(model()->cellImages().at(1), m_original.cellImages().at(1));
        const QImage thumbnail = m_window->layerList()->thumbnails().at(0).toImage();
        ZK_COMPARE_IMAGES(thumbnail.convertToFormat(QImage::Format_ARGB32), image);

        m_window->undo();
        QCOMPARE(model()->cellImages(), m_original.cellImages());
        QCOMPARE(model()->cellPositions(), m_original.cellPositions());
    }

    void boxes_data()
    {
        QTest::addColumn<int>("box");
        QTest::newRow("resize") << int(Resize);
        QTest::newRow("rotate") << int(Rotate);
        QTest::newRow("colour") << int(Colour);
    }

    // No box without a document. Each move of the slider previews from the untouched
    // model: three steps show the retouch of the last value alone, on the canvas too.
    void slidersPreviewWithoutAddingUp_data() { boxes_data(); }
    void slidersPreviewWithoutAddingUp()
    {
        QFETCH(int, box);
        QVERIFY(!openBox(Box(box)));
        open(twoElements(picture({"abcd", "efgh", "ijkl"}), QPoint(3, 3)));
        QViewBox* viewBox = openBox(Box(box));
        QVERIFY(viewBox);
        QCOMPARE(viewBox->windowModality(), Qt::WindowModal);
        QCOMPARE(viewBox->size(), viewBox->minimumSize());
        QCOMPARE(viewBox->size(), viewBox->maximumSize());
        const int value = pageUp(viewBox, Box(box), 3);
        VERIFY_MODEL(expectedAt(Box(box), value));
        QCOMPARE(m_layer->history()->size(), 1);
    }

    // "Apercu" off shows the model as it was and moving a control changes nothing; on
    // again previews the current values at once, and "Valider" applies them whatever
    // the state of "Apercu".
    void apercuSwitchesThePreview_data() { boxes_data(); }
    void apercuSwitchesThePreview()
    {
        QFETCH(int, box);
        open(twoElements(picture({"abcd", "efgh", "ijkl"}), QPoint(3, 3)));
        QViewBox* viewBox = openBox(Box(box));
        pageUp(viewBox, Box(box), 1);
        QTest::mouseClick(viewBox->apercuBox(), Qt::LeftButton);
        VERIFY_MODEL(m_original);
        QVERIFY(model()->hasSnapshot());

        const int value = pageUp(viewBox, Box(box), 2);
        VERIFY_MODEL(m_original);
        QTest::mouseClick(viewBox->apercuBox(), Qt::LeftButton);
        VERIFY_MODEL(expectedAt(Box(box), value));

        QTest::mouseClick(viewBox->apercuBox(), Qt::LeftButton);
        QTest::mouseClick(viewBox->validButton(), Qt::LeftButton);
        VERIFY_MODEL(expectedAt(Box(box), value));
        QCOMPARE(m_layer->history()->size(), 2);
    }

    void recentrer()
    {
        open(twoElements(solidImage(QSize(8, 4), 0xff204060u), QPoint(0, 0)));
        QViewBox* viewBox = openBox(Resize);
        viewBox->findChild<QSpinBox*>(QStringLiteral("Largeur"))->setValue(50);
        QCOMPARE(model()->cellPosition(0, 0), QPoint(2, 0));
        QTest::mouseClick(viewBox->findChild<QCheckBox*>(QStringLiteral("Recentrer")),
                          Qt::LeftButton);
        QCOMPARE(model()->cellPosition(0, 0), QPoint(0, 0));
        QCOMPARE(model()->cellImage(0, 0).size(), QSize(4, 4));
    }

    // Neutral values still make a step, and the document is changed.
    void validNeutral_data() { boxes_data(); }
    void validNeutral()
    {
        QFETCH(int, box);
        open(twoElements(picture({"ab", "cd"}), QPoint(0, 0)));
        QPointer<QViewBox> viewBox = openBox(Box(box));
        QTest::mouseClick(viewBox->validButton(), Qt::LeftButton);
        QCOMPARE(m_layer->history()->size(), 2);
        QCOMPARE(m_layer->history()->labelAt(1), QByteArray(Labels[box]));
        QVERIFY(m_layer->isModified());
        QVERIFY(!model()->hasSnapshot());
        QVERIFY(gone(viewBox));
    }

    // "Annuler", the frame's close button and Escape each put the model back exactly.
    void leaving_data()
    {
        QTest::addColumn<int>("box");
        QTest::addColumn<int>("way");
        const char* const ways[] = {"Annuler", "frame", "Escape"};
        for (int box : {Resize, Rotate, Colour}) {
            for (int way = 0; way < 3; ++way)
                QTest::addRow("%s, %s", Actions[box], ways[way]) << box << way;
        }
    }

    void leaving()
    {
        QFETCH(int, box);
        QFETCH(int, way);
        open(twoElements(picture({"abcd", "efgh", "ijkl"}), QPoint(3, 3)));
        QPointer<QViewBox> viewBox = openBox(Box(box));
        pageUp(viewBox, Box(box), 2);
        if (way == 0)
            QTest::mouseClick(viewBox->cancelButton(), Qt::LeftButton);
        else if (way == 1)
            viewBox->close();
        else
            QTest::keyClick(viewBox, Qt::Key_Escape);
        VERIFY_MODEL(m_original);
        QCOMPARE(m_layer->history()->size(), 1);
        QVERIFY(!m_layer->isModified());
        QVERIFY(!model()->hasSnapshot());
        QVERIFY(gone(viewBox));
    }
};

QTEST_MAIN(TestRetouch)
#include "tst_retouch.moc"
