// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/DBCPdfFlateFilter.h"

#include "cardimage/DBCBitmap.h"
#include "cardimage/DBCPdfRowPredictor.h"

#include <memory>
#include <stdexcept>

#include <qpdf/Pl_Flate.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFStreamFilter.hh>

namespace {

// Hands on what it is given, and throws when that is too much.
class Limiter final : public Pipeline {
public:
    explicit Limiter(Pipeline* receiver)
        : Pipeline("limiter", receiver)
    {
    }

    void write(unsigned char const* data, size_t length) override
    {
        constexpr auto limit = static_cast<size_t>(DBCBitmap::maximumBytes);
        if (length > limit - _written)
            throw std::length_error("unpacks without end");
        _written += length;
        getNext()->write(data, length);
    }
    void finish() override { getNext()->finish(); }

private:
    size_t _written = 0;
};

class FlateFilter final : public QPDFStreamFilter {
public:
    bool setDecodeParms(QPDFObjectHandle parameters) override
    {
        _rows = DBCPdfRows::of(parameters);
        return _rows.has_value();
    }

    Pipeline* getDecodePipeline(Pipeline* next) override
    {
        _limiter = std::make_unique<Limiter>(next);
        next = _limiter.get();
        if (_rows->kind != DBCPdfRows::Kind::Plain) {
            _predictor = std::make_unique<DBCPdfRowPredictor>(*_rows, next);
            next = _predictor.get();
        }
        _inflater = std::make_unique<Pl_Flate>("inflater", next, Pl_Flate::a_inflate);
        return _inflater.get();
    }

private:
    std::optional<DBCPdfRows> _rows;
    std::unique_ptr<Limiter> _limiter;
    std::unique_ptr<DBCPdfRowPredictor> _predictor;
    std::unique_ptr<Pl_Flate> _inflater;
};

} // namespace

void boundFlateStreams()
{
    [[maybe_unused]] static const bool isRegistered = [] {
        QPDF::registerStreamFilter("/FlateDecode",
            []() -> std::shared_ptr<QPDFStreamFilter> { return std::make_shared<FlateFilter>(); });
        return true;
    }();
}
