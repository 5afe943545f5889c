#include <benchmark/benchmark.h>

#include <QApplication>
#include <QImage>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTextEdit>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <random>
#include <string>

#include "bench/ZarnicScene.h"
#include "zarnic/platform/uikit/UIApplication.h"
#include "zarnic/platform/uikit/UIScreen.h"
#include "zarnic/platform/uikit/UITextView.h"

/// A letter typed at the end of a text in an editor as large as the screen, with layout and the
/// repaint of what changed. Words of five letters come at random, so that no text comes twice.
namespace {

constexpr double fontSize = 15;
constexpr int width = 375;
constexpr int height = 667;
constexpr double scale = 2;
/// So many letters are typed before the text begins again.
constexpr int most = 200;

/// So many bytes in paragraphs of at most so many.
std::string textOf(std::size_t size, std::size_t paragraph) {
    const std::string sentence = "The quick brown fox jumps over the lazy dog. ";
    std::string text;
    std::size_t start = 0;
    while (text.size() < size) {
        text += sentence;
        if (paragraph < size && text.size() - start + sentence.size() > paragraph) {
            text.back() = '\n';
            start = text.size();
        }
    }
    text.resize(size);
    text.back() = '.';
    return text;
}

class ZarnicEditor {
public:
    explicit ZarnicEditor(const std::string& text) {
        bench::ZarnicScene::shared();
        window_ = zn::make<zn::UIWindow>(zn::UIScreen::mainScreen()->bounds());
        window_->setBackgroundColor(zn::UIColor::whiteColor());
        view_ = zn::make<zn::UITextView>(window_->bounds());
        view_->setFont(zn::UIFont::systemFontOfSize(fontSize));
        view_->setText(text);
        window_->addSubview(view_);
        window_->makeKeyAndVisible();
        view_->becomeFirstResponder();
        paint();
    }
    ~ZarnicEditor() {
        view_->resignFirstResponder();
        window_->setHidden(true);
        paint();
    }
    ZarnicEditor(const ZarnicEditor&) = delete;
    ZarnicEditor& operator=(const ZarnicEditor&) = delete;

    void reset(const std::string& text) {
        view_->setText(text);
        paint();
    }
    void type(char letter) {
        zn::UIApplication::sharedApplication()->insertText({&letter, 1});
        paint();
    }
    const std::string& text() const { return view_->text(); }
    double contentHeight() const { return view_->contentSize().height; }

private:
    static void paint() { bench::ZarnicScene::shared().host().screen().paint(); }

    zn::Ref<zn::UIWindow> window_;
    zn::Ref<zn::UITextView> view_;
};

class QtEditor {
public:
    explicit QtEditor(const std::string& text)
        : picture_(static_cast<int>(width * scale), static_cast<int>(height * scale),
                   QImage::Format_ARGB32_Premultiplied) {
        picture_.setDevicePixelRatio(scale);
        QFont font("Inter");
        font.setPixelSize(static_cast<int>(fontSize));
        edit_.setFont(font);
        edit_.setFrameShape(QFrame::NoFrame);
        edit_.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        edit_.resize(width, height);
        edit_.show();
        reset(text);
    }

    void reset(const std::string& text) {
        edit_.setPlainText(QString::fromStdString(text));
        edit_.moveCursor(QTextCursor::End);
        QApplication::processEvents();
        edit_.viewport()->render(&picture_);
    }
    void type(char letter) {
        press(letter == ' ' ? Qt::Key_Space : Qt::Key_A + (letter - 'a'),
              QString(QLatin1Char(letter)));
    }
    std::string text() const { return edit_.toPlainText().toStdString(); }
    double contentHeight() const { return edit_.document()->size().height(); }

private:
    void press(int key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QApplication::sendEvent(&edit_, &event);
        // The line that changed, no more.
        const QRect caret = edit_.cursorRect();
        const QRect line(0, caret.top(), width, caret.height());
        edit_.viewport()->render(&picture_, line.topLeft(), QRegion(line));
    }

    QTextEdit edit_;
    QImage picture_;
};

/// Both must end with the same text in about the same number of lines.
void requireSame(const ZarnicEditor& ours, const QtEditor& peer) {
    const double ratio = ours.contentHeight() / peer.contentHeight();
    if (ours.text() == peer.text() && ratio > 0.9 && ratio < 1.1)
        return;
    std::fprintf(stderr, "the editors differ: %f, %f points high\n", ours.contentHeight(),
                 peer.contentHeight());
    std::exit(1);
}

template <class Editor>
void typeAtEnd(benchmark::State& state) {
    const std::string text =
        textOf(static_cast<std::size_t>(state.range(0)), static_cast<std::size_t>(state.range(1)));
    {
        ZarnicEditor ours(text);
        QtEditor peer(text);
        ours.type('x');
        peer.type('x');
        requireSame(ours, peer);
    }
    Editor editor(text);
    std::mt19937 random(1);
    int typed = 0;
    for (auto _ : state) {
        const bool wordEnds = typed % 6 == 5;
        editor.type(wordEnds ? ' ' : static_cast<char>('a' + random() % 26));
        if (++typed == most) {
            state.PauseTiming();
            editor.reset(text);
            typed = 0;
            state.ResumeTiming();
        }
    }
    if (editor.text().size() != text.size() + static_cast<std::size_t>(typed))
        state.SkipWithError("letters were lost");
}

void TypeAtEnd_Zarnic(benchmark::State& state) {
    typeAtEnd<ZarnicEditor>(state);
}

void TypeAtEnd_Qt(benchmark::State& state) {
    typeAtEnd<QtEditor>(state);
}

/// Ten thousand characters in paragraphs and in one; a hundred thousand in paragraphs.
void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Args({10'000, 400})
        ->Args({10'000, 10'000})
        ->Args({100'000, 400})
        ->Unit(benchmark::kMicrosecond);
}
BENCHMARK(TypeAtEnd_Zarnic)->Apply(sizes);
BENCHMARK(TypeAtEnd_Qt)->Apply(sizes);

}  // namespace
