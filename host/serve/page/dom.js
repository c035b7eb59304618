// Elements without markup in strings: what comes from a gateway is never read as HTML.

const SVG = "http://www.w3.org/2000/svg";

function fill(element, properties, children) {
  for (const [name, value] of Object.entries(properties ?? {})) {
    if (value === undefined || value === null || value === false)
      continue;
    if (name.startsWith("on"))
      element.addEventListener(name.slice(2), value);
    else
      element.setAttribute(name, value === true ? "" : value);
  }
  element.append(...children.flat(Infinity).filter((child) => child !== null && child !== undefined && child !== false));
  return element;
}

/** An element with attributes, listeners ("onclick") and children; those that are null or false are left out. */
export function h(tag, properties, ...children) {
  return fill(document.createElement(tag), properties, children);
}

/** Appends children as h() does. */
export const put = (element, ...children) => fill(element, {}, children);

/** The same as h() for the elements of a drawing. */
export function svg(tag, properties, ...children) {
  return fill(document.createElementNS(SVG, tag), properties, children);
}

/** The text's parts that are one of the words stand in a mark. */
export function marked(text, words) {
  const found = words.filter(Boolean).map((word) => word.replace(/[.*+?^${}()|[\]\\]/g, "\\$&"));
  if (found.length === 0)
    return [text];
  return text.split(new RegExp(`(${found.join("|")})`, "gi"))
    .map((part, i) => (i % 2 === 1 ? h("mark", {}, part) : part));
}

/** Says something to those who see the page and to those who hear it. kind: "good", "bad" or nothing. */
export function say(text, kind = "") {
  const place = document.getElementById("said");
  place.className = `said ${kind}`;
  place.textContent = text;
  clearTimeout(say.timer);
  say.timer = setTimeout(() => { place.textContent = ""; place.className = "said"; }, kind === "bad" ? 12000 : 5000);
}

/** "1 record", "3 records". */
export function counted(number, word) {
  return `${number} ${word}${number === 1 ? "" : "s"}`;
}

/** One stop of the Tab key for all options of a list: the arrows, Home and End go on from there. */
export function roving(list, options) {
  const all = () => [...list.querySelectorAll(options)];
  const go = (to) => {
    for (const each of all())
      each.tabIndex = each === to ? 0 : -1;
    to.focus({ preventScroll: false });
  };
  list.addEventListener("keydown", (event) => {
    const those = all();
    const at = those.indexOf(event.target.closest(options));
    const to = { ArrowDown: at + 1, ArrowRight: at + 1, ArrowUp: at - 1, ArrowLeft: at - 1, Home: 0,
      End: those.length - 1 }[event.key];
    if (at < 0 || to === undefined || event.ctrlKey || event.metaKey || event.altKey)
      return;
    event.preventDefault();
    if (those[to])
      go(those[to]);
  });
}

/** Makes the first option the stop of the Tab key, where none is. */
export function startRoving(list, options) {
  const those = [...list.querySelectorAll(options)];
  those.forEach((each, i) => { each.tabIndex = i === 0 ? 0 : -1; });
}
