// The request that the page would send, for a shell or a program.

import { parse } from "./json.js";

const shell = (text) => `'${text.replaceAll("'", "'\\''")}'`;

/** Whether a script that reads the document would write the same values again. */
function survives(document) {
  return document.values.every((value) =>
    (value.type !== "integer" || Number.isSafeInteger(Number(value.raw))) &&
    value.type !== "real" && value.type !== "word" &&
    (!value.key || value.parent.children.filter((each) => each.key.name === value.key.name).length === 1));
}

function literal(text) {
  const trimmed = text.trim();
  try {
    JSON.parse(trimmed);
  } catch {
    return { value: JSON.stringify(text), whole: false };
  }
  return survives(parse(trimmed)) ? { value: trimmed, whole: true } : { value: JSON.stringify(trimmed), whole: false };
}

const typeName = (name) => `${name.split("_").map((part) => part.charAt(0).toUpperCase() + part.slice(1)).join("")}Input`;

const request = (method, url, body) => `const answer = await fetch(${JSON.stringify(url)}, {
  method: "${method}",
  headers: { "Content-Type": "application/json" },
  body: ${body},
});
if (!answer.ok)
  throw new Error((await answer.json()).title);
`;

/** A request with a resource's document as a command: "curl", or as a program: "fetch", "TypeScript". */
export function snippet(kind, method, url, name, text) {
  if (kind === "curl")
    return `curl -X ${method} ${shell(url)} \\\n  -H 'Content-Type: application/json' \\\n  --data-raw ${shell(text)}\n`;
  const { value, whole } = literal(text);
  if (kind === "fetch")
    return request(method, url, whole ? `JSON.stringify(${value.replaceAll("\n", "\n  ")})` : value);
  const type = typeName(name);
  return whole ?
    `import type { ${type} } from "./kelmora";\n\nconst document: ${type} = ${value};\n\n${request(method, url, "JSON.stringify(document)")}` :
    `// A script's numbers and objects cannot hold this document exactly, so it is sent as a string.\nconst document: string = ${value};\n\n${request(method, url, "document")}`;
}
