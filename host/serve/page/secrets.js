// Which keys hold secrets is told by their meanings; they are covered until one asks for them.

import { generic } from "./json.js";

const WORDS = /\b(pass ?phrase|password|passphrase|secret|token)\b/i;

/** What stands in the place of a secret. Always as long, so that its length does not show. */
export const COVER = "\u2022".repeat(8);

const listeners = new Set();
let shown = false;

/** Whether secrets are to be seen. */
export const secretsShown = () => shown;

/** Shows or covers all secrets. */
export function showSecrets(value) {
  shown = value;
  for (const each of listeners)
    each();
}

/** Has it called when secrets are shown or covered; the answer ends that. */
export function onSecrets(listener) {
  listeners.add(listener);
  return () => listeners.delete(listener);
}

/** What of a contract is secret, by pointers of documents and by fields of the record. */
export function secretsOf(contract) {
  const pointers = new Set();
  const fields = new Set();
  for (const direction of ["input", "output"]) {
    for (const key of contract[direction]?.keys ?? []) {
      const texts = (key.fields ?? []).filter((field) => WORDS.test(field.meaning ?? "") && /char|string/.test(field.type));
      if (texts.length !== 0) {
        pointers.add(key.path);
        texts.forEach((field) => fields.add(field.path));
      }
    }
  }
  return {
    hidden: () => !shown,
    pointer: (pointer) => pointers.has(generic(pointer)),
    field: (path) => fields.has(path.replace(/\[\d+\]/g, "[]")),
    /** Whether a value is one to be covered now. */
    covers: (value) => !shown && value.type === "string" && value.value !== "" && pointers.has(generic(value.pointer)),
  };
}
