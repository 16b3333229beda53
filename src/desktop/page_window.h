#pragma once

class QUrl;
class QWidget;

namespace quillery {

/// Shows a page that is a file on this computer in a window of its own, beside `parent`; false for
/// any other. Its links to other places are for a browser and lead nowhere here.
bool showPage(const QUrl& page, QWidget* parent);

} // namespace quillery
