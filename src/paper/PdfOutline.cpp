#include "paper/PdfOutline.h"

#include "paper/Qpdf.h"

#include <algorithm>
#include <exception>
#include <memory>

namespace tallybrook {

namespace {

using Object = QPDFObjectHandle;

Object entryOf(const SectionPlace& section, const Object& page, const Object& outline) {
    Object place = Object::newArray();
    place.appendItem(page);
    place.appendItem(Object::newName("/Fit"));
    Object entry = Object::newDictionary();
    entry.replaceKey("/Title", Object::newUnicodeString(section.name.toStdString()));
    entry.replaceKey("/Parent", outline);
    entry.replaceKey("/Dest", place);
    return entry;
}

/// Each entry names the one before and the one behind it.
void join(std::vector<Object>& entries) {
    for (std::size_t index = 1; index < entries.size(); ++index) {
        entries[index].replaceKey("/Prev", entries[index - 1]);
        entries[index - 1].replaceKey("/Next", entries[index]);
    }
}

void addOutline(QPDF& pdf, const std::vector<SectionPlace>& sections) {
    const std::vector<Object>& pages = pdf.getAllPages();
    Object outline = pdf.makeIndirectObject(Object::newDictionary());
    std::vector<Object> entries;
    for (const SectionPlace& section : sections) {
        if (const auto page = static_cast<std::size_t>(section.page); page < pages.size())
            entries.push_back(pdf.makeIndirectObject(entryOf(section, pages[page], outline)));
    }
    if (entries.empty())
        return;
    join(entries);
    outline.replaceKey("/Type", Object::newName("/Outlines"));
    outline.replaceKey("/First", entries.front());
    outline.replaceKey("/Last", entries.back());
    outline.replaceKey("/Count", Object::newInteger(static_cast<long long>(entries.size())));
    pdf.getRoot().replaceKey("/Outlines", outline);
    pdf.getRoot().replaceKey("/PageMode", Object::newName("/UseOutlines"));
}

}  // namespace

QByteArray withOutline(const QByteArray& pdf, const std::vector<SectionPlace>& sections) {
    try {
        QPDF document;
        document.processMemoryFile("report", pdf.constData(), static_cast<std::size_t>(pdf.size()));
        addOutline(document, sections);
        QPDFWriter writer(document);
        writer.setOutputMemory();
        writer.write();
        const std::shared_ptr<Buffer> written = writer.getBufferSharedPointer();
        return {reinterpret_cast<const char*>(written->getBuffer()),
                static_cast<qsizetype>(written->getSize())};
    } catch (const std::exception&) {
        return pdf;
    }
}

}  // namespace tallybrook
