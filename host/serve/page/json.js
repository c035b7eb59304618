// JSON as it stands in a text: every value with its place and its own spelling. JSON.parse would lose both, and digits
// of large numbers too. A text that is not finished yet is read as far as it goes.

const TOKEN = /[\s\uFEFF]*(?:([{}[\],:])|("(?:[^"\\\n]|\\.)*"?)|([^\s{}[\],:"]+))/y;

const escaped = (key) => key.replaceAll("~", "~0").replaceAll("/", "~1");

function decoded(raw) {
  try {
    return JSON.parse(raw);
  } catch {
    return raw.replace(/^"|"$/g, "");
  }
}

function typeOf(raw) {
  if (raw === "true" || raw === "false")
    return "boolean";
  if (raw === "null")
    return "null";
  if (/^-?\d+$/.test(raw))
    return "integer";
  return /^-?\d+(\.\d+)?([eE][-+]?\d+)?$/.test(raw) ? "real" : "word";
}

/**
 * A text's values. Each is {type, start, end, pointer, key, parent, children}; a scalar also has raw, and a string its
 * value. key is {name, start, end} of a member. The root is null when there is none. at(offset) is the innermost value
 * whose place, its key included, has the offset; get(pointer) is the last one of that pointer, which is the one that counts.
 */
export function parse(text) {
  const values = [];
  const byPointer = new Map();
  let root = null;
  let open = null;
  let key = null;
  let pending = null; // a string in an object, which is a key when a colon follows

  const add = (value) => {
    const index = open && open.type === "array" ? open.children.length : null;
    value.key = open && open.type === "object" ? key : null;
    value.pointer = !open ? "" : `${open.pointer}/${index ?? escaped(key ? key.name : "")}`;
    value.parent = open;
    value.children = [];
    key = null;
    values.push(value);
    byPointer.set(value.pointer, value);
    if (open)
      open.children.push(value);
    else
      root ??= value;
    return value;
  };

  TOKEN.lastIndex = 0;
  for (let match = TOKEN.exec(text); match; match = TOKEN.exec(text)) {
    const [, sign, string, word] = match;
    const end = TOKEN.lastIndex;
    const raw = sign ?? string ?? word;
    const start = end - raw.length;
    if (sign === "{" || sign === "[") {
      open = add({ type: sign === "{" ? "object" : "array", start, end: text.length });
    } else if (sign === "}" || sign === "]") {
      if (open) {
        open.end = end;
        open.closed = true;
        open = open.parent;
      }
      key = pending = null;
      if (!open && root)
        break;
    } else if (sign === ":") {
      if (pending)
        key = pending;
      pending = null;
    } else if (sign === ",") {
      key = pending = null;
    } else if (string !== undefined && open && open.type === "object" && !key) {
      pending = { name: decoded(string), start, end };
    } else {
      const value = add({ type: string !== undefined ? "string" : typeOf(raw), start, end, raw });
      if (string !== undefined)
        value.value = decoded(string);
    }
  }
  return {
    root,
    values,
    text,
    get: (pointer) => byPointer.get(pointer),
    at: (offset) => {
      let found = null;
      for (const value of values) {
        if ((value.key ? value.key.start : value.start) <= offset && offset <= value.end)
          found = value;
      }
      return found;
    },
  };
}

/** The pointer with "*" for each index, as a contract spells it. */
export function generic(pointer) {
  return pointer.replace(/\/\d+(?=\/|$)/g, "/*");
}

/** The last part of a pointer, as the key that it is. */
export function lastOf(pointer) {
  return pointer.slice(pointer.lastIndexOf("/") + 1).replaceAll("~1", "/").replaceAll("~0", "~");
}

/** Whether two scalars say the same. */
export function same(one, other) {
  if (one.type === "string" || other.type === "string")
    return one.type === other.type && one.value === other.value;
  return one.raw === other.raw;
}

/**
 * A value over several lines: [{depth, value, parts, closes}]. parts are [kind, text] in their order; values keep their
 * own spelling. shown(value) answers the text for a scalar.
 */
export function linesOf(root, shown = (value) => value.raw) {
  const lines = [];
  const add = (value, depth, comma) => {
    const parts = value.key ? [["key", JSON.stringify(value.key.name)], ["sign", ": "]] : [];
    if (value.type !== "object" && value.type !== "array") {
      lines.push({ depth, value, parts: [...parts, [value.type, shown(value)], ["sign", comma]] });
      return;
    }
    const [opening, closing] = value.type === "object" ? "{}" : "[]";
    if (value.children.length === 0) {
      lines.push({ depth, value, parts: [...parts, ["sign", opening + closing + comma]] });
      return;
    }
    lines.push({ depth, value, parts: [...parts, ["sign", opening]] });
    value.children.forEach((child, i) => add(child, depth + 1, i + 1 < value.children.length ? "," : ""));
    lines.push({ depth, value, closes: true, parts: [["sign", closing + comma]] });
  };
  if (root)
    add(root, 0, "");
  return lines;
}

/** A value as text over several lines. */
export function pretty(root) {
  return linesOf(root).map((line) => "  ".repeat(line.depth) + line.parts.map(([, text]) => text).join("")).join("\n");
}

/**
 * What is asked for at an offset: {object, wants: "key" or "value", key, start, end}. start and end are of the word or string that
 * the offset is in or behind, which a completion replaces. Nothing in a place where neither stands.
 */
export function contextAt(text, offset) {
  const stack = [];
  let state = { wants: "value", kind: null, key: null };
  let last = null;
  TOKEN.lastIndex = 0;
  for (let match = TOKEN.exec(text); match; match = TOKEN.exec(text)) {
    const [, sign, string, word] = match;
    const end = TOKEN.lastIndex;
    const raw = sign ?? string ?? word;
    const start = end - raw.length;
    if (start >= offset)
      break;
    const unfinished = string !== undefined && (raw.length === 1 || !raw.endsWith("\""));
    if (!sign && (end > offset || (end === offset && (word !== undefined || unfinished)))) {
      last = { start, end };
      break;
    }
    if (sign === "{" || sign === "[") {
      stack.push(state);
      state = { kind: sign, wants: sign === "{" ? "key" : "value", key: null, index: 0 };
    } else if (sign === "}" || sign === "]") {
      state = stack.pop() ?? { wants: null, kind: null };
      state.wants = null;
    } else if (sign === ":") {
      state.wants = "value";
    } else if (sign === ",") {
      state.wants = state.kind === "{" ? "key" : "value";
      state.index += 1;
    } else if (state.kind === "{" && state.wants === "key") {
      state.key = decoded(raw);
      state.wants = "colon";
    } else {
      state.wants = null;
    }
  }
  if (!state.kind || (state.wants !== "key" && state.wants !== "value"))
    return null;
  const path = [...stack.slice(1), state].slice(0, -1)
    .map((each) => (each.kind === "{" ? escaped(each.key ?? "") : `${each.index}`));
  const holder = path.map((each) => `/${each}`).join("");
  return {
    holder,
    wants: state.wants,
    pointer: state.wants === "key" ? null : `${holder}/${state.kind === "{" ? escaped(state.key ?? "") : state.index}`,
    start: last ? last.start : offset,
    end: last ? last.end : offset,
  };
}

/** Where a line and a column, both counted from 1 and columns in characters, are in a text. */
export function offsetOf(text, line, column) {
  let at = 0;
  for (let i = 1; i < line; ++i) {
    const end = text.indexOf("\n", at);
    if (end < 0)
      return text.length;
    at = end + 1;
  }
  for (let i = 1; i < column && at < text.length; ++i)
    at += text.codePointAt(at) > 0xffff ? 2 : 1;
  return at;
}
