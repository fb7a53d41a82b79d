#pragma once

class QTabWidget;

namespace klt {

/// The tabs of `kNotices`: on each a notice as sentences with fields in them. Fields that hold the same are
/// kept so.
QTabWidget* makeCopyrightPages();

}  // namespace klt
