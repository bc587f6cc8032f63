#include "extras/windows/frmAbout.h"

#include "extras/AboutShow.h"
#include "extras/Misc.h"
#include "platform/files/ProgramFolder.h"
#include "platform/qt/QtText.h"
#include "platform/qt/Twips.h"

#include <QFileInfo>
#include <QFont>
#include <QFontMetrics>
#include <QMetaObject>
#include <QPalette>
#include <QSize>
#include <QWidget>

#include <functional>

namespace plenair {

namespace {

constexpr double kWidth = 5370;
constexpr double kHeight = 4890;

const QString kVersion = " Plenair v" PLENAIR_VERSION;
const QString kCopyright = " \u00A9 2026 the Plenair developers";
const QString kStuff = "\n"
                       "Made by the Plenair developers, free to use under the MIT licence.\n"
                       "\n"
                       "Plenair remains in a paused state of development until I generate\n"
                       "enough spare time to complete it, or someone else decides to own\n"
                       "the software, add their name to it, develop & support it.\n"
                       "\n"
                       "The code is structured to allow adaption to many fluid flow\n"
                       "calculations - air, water, gas, ducts, pipes etc.\n"
                       "\n"
                       "Many other features can also be expanded to provide even more of\n"
                       "what Plenair does best - save you time in sizing ductwork.\n"
                       "\n"
                       "Would you like to help, or to tell what you think of it? Get in touch:\n"
                       "\n"
                       "the Plenair developers, %1";

// Where users turn to: the address that whoever built the program gave it, else the documents beside it.
QString Address() {
    const QString given = PLENAIR_ADDRESS;
    const QFileInfo manual(ToQt(DeliveredPath("manual")));
    return !given.isEmpty()  ? given
           : manual.exists() ? QFileInfo(manual.canonicalFilePath()).path()
                             : ToQt(DeliveryFolder());
}

// Shows a text on a label, smaller where a font that stands in for a missing one would not fit.
void ShowText(Label& label, const QString& text) {
    QFont font = label.font();
    while (font.pointSizeF() > 4) {
        const QSize size = QFontMetrics(font, &label).size(0, text);
        if (size.width() <= label.width() && size.height() <= label.height()) {
            break;
        }
        font.setPointSizeF(font.pointSizeF() - 0.25);
    }
    label.setFont(font);
    label.setText(text);
}

} // namespace

frmAbout::frmAbout()
    : Form("frmAbout", "About Plenair",
           Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
               Qt::WindowCloseButtonHint),
      m_canvas(new StrokeCanvas("canvas", Client())),
      picGus(new ImagePicture("picGus", ":/mascot/gus.jpg", Client())),
      lblPlenair(AddLabel("lblPlenair", 1470, 210, 2955, 330)),
      lblCR(AddLabel("lblCR", 1470, 945, 2955, 225)), lblStuff(AddLabel("lblStuff", 210, 1260, 4935, 3120)) {
    SetClientSize(kWidth, kHeight);
    MoveToCentre();
    Place(m_canvas, 0, 0, kWidth, kHeight);
    Place(picGus, 210, 210, 1065, 960);
    picGus->setAccessibleName("Gus, the mascot");
    picGus->hide();
    picGus->Click = [this] { picGus_Click(); };
    QFont bold("Arial");
    bold.setPointSizeF(11.25 * FormScale());
    bold.setBold(true);
    lblPlenair->setFont(bold);
    lblStuff->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
}

Label* frmAbout::AddLabel(const QString& name, double left, double top, double width, double height) {
    auto* label = new Label(name, QString(), Client());
    QPalette colours = label->palette();
    colours.setColor(QPalette::Window, Qt::black);
    colours.setColor(QPalette::WindowText, Qt::white);
    label->setPalette(colours);
    label->SetOpaque(true);
    Place(label, left, top, width, height);
    label->hide();
    return label;
}

void frmAbout::ShowPlain() {
    show();
    Form_Activate();
}

void frmAbout::showEvent(QShowEvent* event) {
    Form::showEvent(event);
    QMetaObject::invokeMethod(this, &frmAbout::Form_Activate, Qt::QueuedConnection);
}

void frmAbout::Form_Activate() {
    if (picGus->isVisible() || m_showRuns) {
        return;
    }
    m_showRuns = true;
    if (!WaitUntilOnScreen()) {
        return; // closed before it was seen
    }
    DoSomething();
    ShowText(*lblPlenair, kVersion);
    ShowText(*lblCR, kCopyright);
    ShowStuff();
    lblPlenair->show();
    lblCR->show();
    lblStuff->show();
    picGus->show();
    Client()->repaint();
    PlayCall();
    m_showRuns = false;
}

void frmAbout::ShowStuff() {
    // A long address loses its middle, lest it make all of the text too small to be read.
    const QString address = Address();
    const QFontMetrics letters = lblStuff->fontMetrics();
    constexpr int kRounding = 2; // of the widths of both parts, which would make the letters smaller
    const int room =
        lblStuff->width() - letters.horizontalAdvance(kStuff.section('\n', -1).arg(QString())) - kRounding;
    const QString shown = letters.elidedText(address, Qt::ElideMiddle, room);
    ShowText(*lblStuff, kStuff.arg(shown));
    lblStuff->setToolTip(shown == address ? QString() : address);
}

void frmAbout::DoSomething() {
    PlayShow(m_canvas->Surface(), [this] { m_canvas->Refresh(); });
}

void frmAbout::picGus_Click() {
    PlayCall();
}

} // namespace plenair
