#pragma once

#include <functional>

namespace klt {

class CommandQueue;
class Store;
class frmKLTEditor;
class frmMDIKLTEditor;
class modKLTSyntaxHighlighter;

/// The pass over a document in its window: it colours and checks, and puts the case of words right.
class DocumentColouring {
public:
    /// `passBegins` is called before anything of a pass is to be seen.
    DocumentColouring(Store& store, CommandQueue& queue, modKLTSyntaxHighlighter& highlighter,
                      std::function<frmMDIKLTEditor&()> mainWindow, std::function<void()> passBegins);

    /// Events run meanwhile, but whatever the user or others ask for waits until the pass is over. The text
    /// is the same afterwards but for the case of words. Where there is too little memory it throws
    /// `std::bad_alloc` and has changed nothing.
    void ColourDocument(frmKLTEditor& document);

private:
    bool showsProgress(const frmKLTEditor& document) const;

    Store& store_;
    CommandQueue& queue_;
    modKLTSyntaxHighlighter& highlighter_;
    std::function<frmMDIKLTEditor&()> mainWindow_;
    std::function<void()> passBegins_;
};

}  // namespace klt
