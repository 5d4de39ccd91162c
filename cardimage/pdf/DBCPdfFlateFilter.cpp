// SPDX-License-Identifier: GPL-3.0-or-later
#include "cardimage/pdf/DBCPdfFlateFilter.h"

#include "cardimage/bitmap/DBCBitmap.h"
#include "cardimage/pdf/DBCPdfRowPredictor.h"

#include <memory>
#include <stdexcept>

#include <qpdf/Pl_Flate.hh>
#include <qpdf/Pl_Function.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFStreamFilter.hh>

namespace {

// Returns a pipeline that passes data on to the receiver, and throws once it has passed on
// DBCBitmap::maximumBytes bytes.
std::unique_ptr<Pipeline> limiterBefore(Pipeline* receiver)
{
    return std::make_unique<Pl_Function>("limiter", receiver,
        [room = static_cast<size_t>(DBCBitmap::maximumBytes)](
            unsigned char const*, size_t length) mutable {
            if (length > room)
                throw std::length_error("unpacks without end");
            room -= length;
        });
}

class FlateFilter final : public QPDFStreamFilter {
public:
    bool setDecodeParms(QPDFObjectHandle parameters) override
    {
        _rows = DBCPdfRows::of(parameters);
        return _rows.has_value();
    }

    Pipeline* getDecodePipeline(Pipeline* next) override
    {
        _limiter = limiterBefore(next);
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
    std::unique_ptr<Pipeline> _limiter;
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
