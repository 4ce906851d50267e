
// The checks of every script test in JScript; they stand behind the script itself.

// Text is escaped: what a console shows of it depends on its code page.
function shown(value) {
    if (typeof value !== "string") return String(value);
    var text = "";
    for (var i = 0; i < value.length; ++i) {
        var code = value.charCodeAt(i);
        if (code >= 32 && code < 127) {
            text += value.charAt(i);
        } else {
            text += "\\u" + ("000" + code.toString(16).toUpperCase()).slice(-4);
        }
    }
    return '"' + text + '"';
}

function report(name, passed, details) {
    WScript.Echo(passed ? "ok " + name : "FAILED " + name + ": " + details);
}

function equal(name, actual, expected) {
    report(name, actual === expected, shown(actual) + " instead of " + shown(expected));
}

// What `action` throws has this number, of which the lower half counts, and, where one is given,
// this description.
function fails(name, action, number, description) {
    var wanted = [number];
    // Some engines translate the system's own numbers, others hand them on.
    if (number === 6) wanted.push(0xA);
    if (number === 13) wanted.push(0x5);
    try {
        action();
    } catch (e) {
        var code = e.number & 0xFFFF;
        var known = false;
        for (var i = 0; i < wanted.length; ++i) known = known || wanted[i] === code;
        if (description === undefined) {
            report(name, known, "error " + code + " instead of " + number);
        } else {
            report(name, known && e.description === description,
                   "error " + code + " " + shown(e.description) + " instead of " + number + " " +
                   shown(description));
        }
        return;
    }
    report(name, false, "no error");
}

WScript.Echo("-- end");
