#include "studio/portrait.h"

#include <QBuffer>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImageReader>
#include <QLabel>
#include <QPainter>
#include <QPixmapCache>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/fault.h"
#include "platform/files.h"
#include "platform/pictures.h"
#include "studio/fields.h"
#include "studio/givenText.h"
#include "studio/notices.h"
#include "studio/safely.h"
#include "studio/workspace.h"
#include "study/bookPeople.h"

namespace portrait {

namespace {

constexpr const char* table = "tblPatients";
constexpr QSize shownSize(216, 137);  ///< the shape of the picture on the page "Patient"
constexpr QSize listSize(40, 26);
constexpr QSize drawnSize(482, 306);

using Person = std::function<std::optional<int>()>;

std::string nameAt(int person) { return book::sheetOf(workspace::book(), table).text(person, "Picture"); }

/// The file's picture in that room; kept until the file is another.
QPixmap readIn(const std::string& name, QSize room, double ratio) {
    if (name.empty()) return {};
    const QFileInfo file(QString::fromStdString(workspace::fileOf(name)));
    const QString key = QString("%1 %2 %3 %4 %5")
                            .arg(file.filePath())
                            .arg(file.lastModified().toMSecsSinceEpoch())
                            .arg(file.size())
                            .arg(room.width())
                            .arg(ratio);
    QPixmap found;
    if (!file.isFile() || QPixmapCache::find(key, &found)) return found;
    QImageReader reader(file.filePath());
    if (reader.size().isValid())
        reader.setScaledSize(reader.size().scaled(room * ratio, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    const QImage image = reader.read();
    if (image.isNull()) return {};
    found = QPixmap::fromImage(image);
    found.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, found);
    return found;
}

/// What keeps the file from being a picture of the program, or nothing.
QString problemOf(const QString& file) {
    try {
        pictures::check(file.toStdString());
    } catch (const Fault& fault) {
        if (fault.number == static_cast<int>(FaultNumber::FileNotFound)) return "The file cannot be read.";
        return "It is no PNG, JPEG, GIF or BMP picture of at most 50 megapixels that can be read to its end.";
    }
    return {};
}

/// The same picture again keeps its name.
void put(book::Book& book, int person, const std::string& own, const std::string& bytes) {
    const bool there = files::tryRead(workspace::fileOf(own)) == bytes;
    const std::string name = there ? own : bookPeople::freeFile(book, workspace::folder(), own);
    if (!there) workspace::putFile(book, name, bytes);
    book::set(book, {table, person, "Picture"}, name);
}

void take(const Person& person, const QString& file) {
    const std::optional<int> row = person();
    if (!row) return fields::tellProblem("Add a person first; the picture is for the person who is chosen.");
    const QString problem = problemOf(file);
    if (!problem.isEmpty()) return notices::tell("The picture stays as it was.", file + "\n\n" + problem);
    const std::string bytes = files::read(file.toStdString());
    workspace::change("Choose the picture", [&](book::Book& book) {
        put(book, *row, QFileInfo(file).fileName().toStdString(), bytes);
    });
}

QString captionOf(int person) {
    const std::string name = nameAt(person);
    if (name.empty()) return "There is no picture yet.";
    const QString text = "Patients/" + QString::fromStdString(name);
    return QFileInfo(QString::fromStdString(workspace::fileOf(name))).isFile()
               ? text
               : text + ": there is no such file.";
}

}  // namespace

Portrait make(const Person& person) {
    auto* const whole = new QWidget;
    auto* const column = new QVBoxLayout(whole);
    auto* const picture = new QLabel;
    auto* const caption = new QLabel;
    auto* const choose = new QPushButton("Choose a picture…");
    picture->setFixedSize(shownSize + QSize(2, 2));
    picture->setAlignment(Qt::AlignCenter);
    picture->setProperty("role", "drop");
    picture->setWordWrap(true);
    caption->setProperty("role", "help");
    givenText::tame(*caption);
    choose->setToolTip("A PNG, JPEG, GIF or BMP file. It can be dropped anywhere on the page, too.");
    choose->setAccessibleDescription(choose->toolTip());
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(picture);
    column->addWidget(choose, 0, Qt::AlignLeft);
    column->addWidget(caption);
    column->addStretch();
    const auto taken = [=](const QString& file) { take(person, file); };
    QObject::connect(choose, &QPushButton::clicked, whole, safely([=](bool) {
                         const QString file = QFileDialog::getOpenFileName(
                             whole, "Choose a picture", {},
                             "Pictures (*.png *.jpg *.jpeg *.gif *.bmp *.PNG *.JPG *.JPEG);;All files (*)");
                         if (!file.isEmpty()) taken(file);
                     }));
    const auto refresh = [=] {
        const std::optional<int> row = person();
        choose->setEnabled(row.has_value());
        const QPixmap found = row ? readIn(nameAt(*row), shownSize, picture->devicePixelRatioF()) : QPixmap();
        if (found.isNull())
            picture->setText(row ? "Drop a picture here" : QString());
        else
            picture->setPixmap(found);
        caption->setText(row ? captionOf(*row) : QString());
    };
    return {whole, choose, refresh, taken};
}

void putNobody(book::Book& book, int person) {
    QImage image(drawnSize, QImage::Format_RGB32);
    image.fill(QColor(0xC9, 0xD1, 0xD9));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x8A, 0x97, 0xA3));
    const QPointF middle(image.width() / 2.0, image.height() * 0.4);
    painter.drawEllipse(middle, image.height() * 0.19, image.height() * 0.23);
    painter.drawEllipse(QPointF(middle.x(), image.height() * 1.02), image.height() * 0.42,
                        image.height() * 0.34);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    image.save(&buffer, "PNG");
    put(book, person, "nobody.png", bytes.toStdString());
}

QIcon small(int person) {
    const QPixmap found = readIn(nameAt(person), listSize, qGuiApp->devicePixelRatio());
    return found.isNull() ? QIcon() : QIcon(found);
}

}  // namespace portrait
