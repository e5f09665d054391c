#include "host/report/page/html.h"

#include <cstdio>

#include "host/report/page/page_files.h"

namespace standin {

std::string HtmlText(std::string_view text) {
    std::string escaped;
    escaped.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '&':
                escaped += "&amp;";
                break;
            case '<':
                escaped += "&lt;";
                break;
            case '>':
                escaped += "&gt;";
                break;
            case '"':
                escaped += "&quot;";
                break;
            case '\'':
                escaped += "&#39;";
                break;
            default:
                escaped += c;
        }
    }
    return escaped;
}

std::string HtmlText(Text text) {
    return HtmlText(Say(text));
}

std::string HtmlLink(std::string_view path) {
    static constexpr std::string_view kPlain =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    std::string link = "./";  // a colon in the first name does not end a scheme
    for (const char c : path) {
        if (kPlain.find(c) != std::string_view::npos) {
            link += c;
            continue;
        }
        char code[4];
        std::snprintf(code, sizeof(code), "%%%02X", static_cast<unsigned char>(c));
        link += code;
    }
    return link;
}

std::string HtmlData(std::string_view json) {
    std::string data;
    data.reserve(json.size() + json.size() / 4);
    for (const char c : json) {
        // The end of the element, or of a comment, shall not be found in it.
        if (c == '<') {
            data += "\\u003c";
        } else {
            data += c;
        }
    }
    return data;
}

std::string HtmlCount(int number, Text one, Text many) {
    return Say(number == 1 ? one : many, {"<b>" + std::to_string(number) + "</b>"});
}

std::string HtmlStart(std::string_view title) {
    const char* language = CurrentLanguage() == Language::kSpanish ? "es" : "en";
    return "<!DOCTYPE html>\n<html lang=\"" + std::string{language} +
           "\">\n<head>\n<meta charset=\"utf-8\">\n"
           "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
           "<meta name=\"color-scheme\" content=\"light dark\">\n<title>" +
           HtmlText(title) + "</title>\n<style>\n" + std::string{kPageStyle} +
           "</style>\n</head>\n<body>\n";
}

}  // namespace standin
