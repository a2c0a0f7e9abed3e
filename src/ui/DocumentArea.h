#pragma once
// The area of the open documents. Their windows are all maximised, which is how the program
// starts, or each is normal or minimised. The area keeps these states itself: frames draw their
// own caption, so the toolkit's own states would leave them without one.
#include "platform/Host.h"

#include <QMdiArea>
#include <QMdiSubWindow>

class DocumentWindow;

/// The window of a document in its frame.
DocumentWindow* WindowOf(const QMdiSubWindow* frame);

class DocumentArea : public QMdiArea {
    Q_OBJECT
public:
    explicit DocumentArea(QWidget* parent);

    /// Puts a frame around the window of a document. It stays hidden until it is opened.
    QMdiSubWindow* AddDocument(DocumentWindow* window);
    /// Shows and activates a frame for a new document: maximised when the others are, else at the
    /// next free place of a cascade.
    void Open(QMdiSubWindow* frame);
    /// Activates a window and restores it when it is minimised.
    void Reveal(QMdiSubWindow* frame);
    /// Arranges the windows, or the icons. Maximised windows become normal first; minimised ones
    /// keep a strip at the bottom. Nothing happens without a document.
    void Arrange(WindowArrangement kind);
    /// The frames of open documents.
    QList<QMdiSubWindow*> Frames(WindowOrder order = CreationOrder) const;
    /// Activates the document used before `left`, a normal one where there is one.
    void ActivateUsedBefore(const QMdiSubWindow* left);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Minimise(QMdiSubWindow* frame);
    void Toggle(QMdiSubWindow* frame);
    void Drag(QMdiSubWindow* frame, QPoint to);
    void ArrangeIcons();
    void ShowActiveOne();
    QList<QMdiSubWindow*> Icons() const;
    QSize Room() const;
    QRect NormalPlace(QMdiSubWindow* frame) const;
    QRect FreeIconPlace() const;

    bool childMaximised_ = true;
};
